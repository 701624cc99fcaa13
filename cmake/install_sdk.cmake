# What `cmake --install` puts down for those who write a module of their own: the headers, the engine as a static
# library, and a CMake package. find_package(Tellurix) gives the function tellurix_add_module; docs/modules.md
# tells the rest.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(sdk_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tellurix)
foreach(folder platform core/base dictionaries db section dialogs/records modules ground persistence)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tellurix/${folder}
        COMPONENT sdk FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
endforeach()
install(TARGETS tellurix_base tellurix_engine EXPORT TellurixTargets COMPONENT sdk)
install(TARGETS tellurix_options EXPORT TellurixTargets COMPONENT sdk)
install(EXPORT TellurixTargets NAMESPACE Tellurix:: DESTINATION ${sdk_folder} COMPONENT sdk)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TellurixConfig.cmake.in
    ${CMAKE_BINARY_DIR}/TellurixConfig.cmake INSTALL_DESTINATION ${sdk_folder}
    PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TellurixConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/TellurixConfig.cmake ${CMAKE_BINARY_DIR}/TellurixConfigVersion.cmake
    DESTINATION ${sdk_folder} COMPONENT sdk)
