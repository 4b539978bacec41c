# The installed libraries and their package. find_package(ZorEdid) gives ZorEdid::ZorEdid and, where the
# operating-system layer was built, ZorEdid::OsServices, which is also the component OsServices. Each target brings its
# public headers. The install component "library" has what running needs, "development" what building needs.

include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)

# One library made of the objects of layers, static or, with BUILD_SHARED_LIBS, shared.
#   NAME           of the file, without "lib"
#   EXPORT         the export set that it joins
#   LAYERS         the targets whose objects and public headers it takes
#   LINKS          what a program links, too
#   PRIVATE_LINKS  what the library itself needs
function(zor_install_library target)
  cmake_parse_arguments(ARG "" "NAME;EXPORT" "LAYERS;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${target})
  zor_target_defaults(${target})
  foreach(layer IN LISTS ARG_LAYERS)
    get_target_property(headers ${layer} HEADER_SET)
    get_target_property(folders ${layer} HEADER_DIRS)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${layer}>
                             PUBLIC FILE_SET HEADERS BASE_DIRS ${folders} FILES ${headers})
  endforeach()
  # For the CMake of a user that is older than file sets (3.23).
  target_include_directories(${target} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid>)
  target_link_libraries(${target} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  if(NOT ZOREDID_SANITIZE) # the sanitizers' runtime is in the program
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  # Versions that differ in the second number are not exchangeable, and so the soname has both.
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME ${ARG_NAME} VERSION ${PROJECT_VERSION}
                                             SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  install(TARGETS ${target} EXPORT ${ARG_EXPORT}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
          FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid COMPONENT development)
  install(EXPORT ${ARG_EXPORT} NAMESPACE ZorEdid:: DESTINATION ${package} COMPONENT development)
endfunction()

zor_install_library(ZorEdid NAME zoredid EXPORT ZorEdidTargets
                    LAYERS zor_edid_map zor_edid_utils zor_edid zor_timings zor_containers zor_os_messages)
add_library(ZorEdid::ZorEdid ALIAS ZorEdid)

if(TARGET zor_os_services)
  find_package(Threads REQUIRED)
  zor_install_library(ZorEdidOsServices NAME zoredid-os-services EXPORT ZorEdidOsServicesTargets
                      LAYERS zor_os_services LINKS ZorEdid Threads::Threads PRIVATE_LINKS ZorEdid::libpci)
  add_library(ZorEdid::OsServices ALIAS ZorEdidOsServices)
  # Below a prefix of its own, the shared library finds the other one beside it.
  set_target_properties(ZorEdidOsServices PROPERTIES EXPORT_NAME OsServices INSTALL_RPATH "$ORIGIN")
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZorEdidLibpci.cmake DESTINATION ${package} COMPONENT development)
endif()

write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZorEdidConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake INSTALL_DESTINATION ${package})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake
        DESTINATION ${package} COMPONENT development)

# The same for pkg-config. Its file finds the prefix from where it stands itself, so that the package can be moved.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc ${prefix_from_pc})
configure_file(${CMAKE_CURRENT_LIST_DIR}/zoredid.pc.in ${CMAKE_CURRENT_BINARY_DIR}/zoredid.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zoredid.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

# For scripts/docs: the installed headers, a line each.
set(headers $<TARGET_PROPERTY:ZorEdid,HEADER_SET>)
if(TARGET ZorEdidOsServices)
  list(APPEND headers $<TARGET_PROPERTY:ZorEdidOsServices,HEADER_SET>)
endif()
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/public-headers.txt CONTENT "$<JOIN:${headers},\n>\n")
