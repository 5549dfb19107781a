# Makes an installation findable: find_package(vemo).
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vemo)
configure_package_config_file(cmake/vemoConfig.cmake.in ${CMAKE_BINARY_DIR}/vemoConfig.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vemoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/vemoConfig.cmake ${CMAKE_BINARY_DIR}/vemoConfigVersion.cmake
  DESTINATION ${package_folder})
install(EXPORT vemo NAMESPACE vemo:: FILE vemoTargets.cmake DESTINATION ${package_folder})
