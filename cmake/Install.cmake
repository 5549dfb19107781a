# Makes an installation findable: find_package(vemo COMPONENTS ...).
include(CMakePackageConfigHelpers)

get_property(components GLOBAL PROPERTY vemo_components)
get_property(component_names GLOBAL PROPERTY vemo_component_names)
string(JOIN " " component_names ${component_names})
configure_package_config_file(cmake/vemoConfig.cmake.in ${CMAKE_BINARY_DIR}/vemoConfig.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vemoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/vemoConfig.cmake ${CMAKE_BINARY_DIR}/vemoConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT dev)
