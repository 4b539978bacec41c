# Installed package: find_package(ZorEdid) gives ZorEdid::ZorEdid and, where it was built, ZorEdid::OsServices, which is
# also the component OsServices.

include(CMakePackageConfigHelpers)

# The EDID side as one name.
add_library(ZorEdid INTERFACE)
target_link_libraries(ZorEdid INTERFACE zor_edid_utils zor_edid)
add_library(ZorEdid::ZorEdid ALIAS ZorEdid)

install(TARGETS ZorEdid zor_edid_utils zor_edid zor_timings zor_containers zor_os_messages EXPORT ZorEdidTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT ZorEdidTargets NAMESPACE ZorEdid:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)

set(layer "${PROJECT_SOURCE_DIR}/ExternalDeviceLayer")
install(FILES
  ${layer}/Core/XDevLayer/VidMgr/Edid.h
  ${layer}/Core/XDevLayer/VidMgr/EdidBase.h
  ${layer}/Core/XDevLayer/VidMgr/EdidExtBlock.h
  ${layer}/Core/XDevLayer/VidMgr/EdidExtBlockCEA861.h
  ${layer}/Core/XDevLayer/VidMgr/EdidExtBlockDisplayID.h
  ${layer}/Core/XDevLayer/VidMgr/EdidUtils.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamTiming.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamTimingGeneric.h
  ${layer}/Core/XDevLayer/VidMgr/RVidParamTiming.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamTimingFunc.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamCea.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamDmt.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamSmpte.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamCvt.h
  ${layer}/Core/XDevLayer/VidMgr/VidParamGtf.h
  ${layer}/Utilities/ZorEdidUtils/ZorEdidUtils.h
  ${layer}/Core/SharedFiles/Includes/ZorMFCTypes.h
  ${layer}/Core/OsServices/Includes/OsServices.h
  ${layer}/Core/OsServices/Includes/ZorTools.h
  ${layer}/Core/OsServices/Includes/ZorAssert.h
  ${layer}/Utilities/OsServicesClient/Includes/OsServicesClient.h
  ${layer}/Utilities/OsServicesClient/Src/Linux/ZorLibrary.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid)
install(DIRECTORY ${layer}/Core/SharedFiles/Includes/ZorMFCTypes DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZorEdid
        FILES_MATCHING PATTERN "*.h")

if(TARGET zor_os_services)
  add_library(ZorEdid::OsServices ALIAS zor_os_services)
  set_target_properties(zor_os_services PROPERTIES EXPORT_NAME OsServices)
  install(TARGETS zor_os_services EXPORT ZorEdidOsServicesTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT ZorEdidOsServicesTargets NAMESPACE ZorEdid:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/ZorEdidLibpci.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)
endif()

write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZorEdidConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/ZorEdidConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/ZorEdid)
