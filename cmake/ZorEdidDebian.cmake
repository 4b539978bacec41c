# Debian packages of a shared build: zoredid (the command), the library, named by its soname, libzoredid-dev (what
# programs are built with) and, where Python is there, python3-zoredid. scripts/package makes them with the compiler
# flags of the distribution.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "ZorEdid maintainers <maintainers@zoredid.invalid>" CACHE STRING "Who makes the packages")
mark_as_advanced(CPACK_PACKAGE_CONTACT)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(debian_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
mark_as_advanced(DPKG_SHLIBDEPS)

# Documents of the packages. The changelog of the project is Markdown, which a packager's changelog must not be.
set(documents ${CMAKE_CURRENT_BINARY_DIR}/debian)
string(TIMESTAMP debian_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/changelog.in ${documents}/changelog.Debian @ONLY)
file(READ ${PROJECT_SOURCE_DIR}/CHANGELOG.md changes)
string(REPLACE "## Unreleased" "## ${PROJECT_VERSION}, packaged before its release" changes "${changes}")
file(WRITE ${documents}/changelog "${changes}")
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/ZorEdidDebianFiles.cmake)

# zor_debian_package(COMPONENT NAME SECTION SUMMARY DESCRIPTION): one install component as a package.
macro(zor_debian_package component name section summary description)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${description}")
  if(DPKG_SHLIBDEPS)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
  endif()
  set(folder ${CMAKE_INSTALL_DATADIR}/doc/${name})
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/debian/copyright.${component} RENAME copyright
          DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES ${documents}/changelog ${documents}/changelog.Debian
          DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

if(TARGET zoredid)
  zor_debian_package(command zoredid utils "reports, checks, edits and converts EDID data of monitors"
"EDID is the data in which a monitor says what it is and what it can show.
This command says what each byte means, in a terminal or as a page for a
browser, prints reports (text and JSON), lists and compares timings, checks
data for faults, edits it, and converts it between the forms that other
tools read and write.")
endif()

set(about "The library loads, lists, edits and writes EDID data: base blocks and
extension blocks (CTA-861, DisplayID up to 1.2). It computes timings, and a
map of the bytes says what each of them means, in blocks of any kind. Facts
say what a display can do. Programs in C have an interface of their own.")
zor_debian_package(development libzoredid-dev libdevel
"library for EDID data of monitors, for C++20 and C (development files)"
"${about}
This package has the headers, the library, and what CMake and pkg-config
need to find them.")

set(library libzoredid${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS hwdata) # names of makers
zor_debian_package(library ${library} libs "C++20 library for EDID data of monitors" "${about}")
file(WRITE ${documents}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${documents}/triggers)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/ExternalDeviceLayer) # one needs the other
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library} (= ${debian_version})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS zoredid) # the pages of docs/ are in it

if(TARGET zoredid_python)
  zor_debian_package(python python3-zoredid python "EDID data of monitors for Python"
"EDID is the data in which a monitor says what it is and what it can show.
This package reads it in any state: what a display can do, its modes, what
each byte means, and what is wrong with it. It edits and repairs images, and
reads the facts of many as columns.")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
      "${library} (= ${debian_version}), python3 (>= 3.11), python3-cffi-backend")
  foreach(script IN ITEMS postinst prerm)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/debian/python.${script} ${documents}/${script} COPYONLY
                   FILE_PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
    list(APPEND CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${documents}/${script})
  endforeach()
endif()

include(CPack)
