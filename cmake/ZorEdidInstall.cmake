# The installed package. find_package(ZorEdid) gives ZorEdid::ZorEdid and, where the operating-system layer was built,
# ZorEdid::OsServices, which is also the component OsServices. Each target brings its public headers.

include(CMakePackageConfigHelpers)

# The EDID side as one name.
add_library(ZorEdid INTERFACE)
target_link_libraries(ZorEdid INTERFACE zor_edid_utils zor_edid)
add_library(ZorEdid::ZorEdid ALIAS ZorEdid)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)

install(TARGETS ZorEdid zor_edid_utils zor_edid zor_timings zor_containers zor_os_messages EXPORT ZorEdidTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} FILE_SET HEADERS DESTINATION ${headers})
install(EXPORT ZorEdidTargets NAMESPACE ZorEdid:: DESTINATION ${package})

if(TARGET zor_os_services)
  add_library(ZorEdid::OsServices ALIAS zor_os_services)
  set_target_properties(zor_os_services PROPERTIES EXPORT_NAME OsServices)
  install(TARGETS zor_os_services EXPORT ZorEdidOsServicesTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} FILE_SET HEADERS DESTINATION ${headers})
  install(EXPORT ZorEdidOsServicesTargets NAMESPACE ZorEdid:: DESTINATION ${package})
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZorEdidLibpci.cmake DESTINATION ${package})
endif()

write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZorEdidConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake INSTALL_DESTINATION ${package})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake
        DESTINATION ${package})
