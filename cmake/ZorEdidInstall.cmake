# The package of the libraries. find_package(ZorEdid) gives ZorEdid::ZorEdid and, where the
# operating-system layer was built, ZorEdid::OsServices, which is also the component OsServices. Each target brings its
# public headers. The install component "library" has what running needs, "development" what building needs.

include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)

foreach(library IN ITEMS ZorEdid ZorEdidOsServices)
  if(NOT TARGET ${library})
    continue()
  endif()
  target_include_directories(${library} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid>)
  install(TARGETS ${library} EXPORT ${library}Targets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
          FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid COMPONENT development)
  install(EXPORT ${library}Targets NAMESPACE ZorEdid:: DESTINATION ${package} COMPONENT development)
endforeach()
if(TARGET ZorEdidOsServices)
  # Under a prefix of its own, the shared library finds the other one beside it.
  # The build folder leaves no trace in it.
  set_target_properties(ZorEdidOsServices PROPERTIES EXPORT_NAME OsServices INSTALL_RPATH "$ORIGIN"
                                                     BUILD_WITH_INSTALL_RPATH ON)
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZorEdidLibpci.cmake DESTINATION ${package} COMPONENT development)
endif()

write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZorEdidConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake INSTALL_DESTINATION ${package})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake
        DESTINATION ${package} COMPONENT development)

# The same for pkg-config. Its file finds the prefix from where it is itself, so that the package can be moved.
file(RELATIVE_PATH prefix_from_pc ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc ${prefix_from_pc})
# What C++ brings: a compiler of C does not know. A static library needs it of everybody.
set(private_libs ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER private_libs INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
list(REMOVE_DUPLICATES private_libs)
list(TRANSFORM private_libs PREPEND " -l")
list(JOIN private_libs "" private_libs)
if(NOT BUILD_SHARED_LIBS)
  set(public_libs "${private_libs}")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/zoredid.pc.in ${CMAKE_CURRENT_BINARY_DIR}/zoredid.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zoredid.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

# Programs to copy.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libzoredid-dev/examples
        COMPONENT development FILES_MATCHING PATTERN "consumer/*" PATTERN tour.cpp PATTERN monitor.bin)

# For scripts/docs: the installed headers, a line each.
set(headers $<TARGET_PROPERTY:ZorEdid,HEADER_SET>)
if(TARGET ZorEdidOsServices)
  list(APPEND headers $<TARGET_PROPERTY:ZorEdidOsServices,HEADER_SET>)
endif()
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/public-headers.txt CONTENT "$<JOIN:${headers},\n>\n")
