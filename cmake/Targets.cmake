include(GNUInstallDirs)

# What is installed finds its libraries wherever the folder is moved.
set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

# The one root of public headers, and where its generated part is.
set(public_headers ${CMAKE_SOURCE_DIR}/include)
set(generated_headers ${CMAKE_BINARY_DIR}/include)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vemo)

# vemo_export_header(NAME): <vemo/NAME/Export.h> with VEMO_NAME_EXPORT.
function(vemo_export_header name)
  string(TOUPPER VEMO_${name}_EXPORT macro)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/Export.h.in ${generated_headers}/vemo/${name}/Export.h @ONLY)
endfunction()

# vemo_pkg_config(NAME LIBRARIES ...): how pkg-config finds the library, which links these
# publicly. VTK has no such files: its headers and libraries are named.
function(vemo_pkg_config name)
  set(requires ${ARGN})
  set(modules ${ARGN})
  list(FILTER requires INCLUDE REGEX "^vemo_")
  list(TRANSFORM requires REPLACE "^vemo_" "vemo-")
  list(JOIN requires ", " requires)
  list(FILTER modules INCLUDE REGEX "^VTK::")
  set(vtk_folders "")
  set(vtk_libraries "")
  foreach(module IN LISTS modules)
    list(APPEND vtk_folders $<TARGET_PROPERTY:${module},INTERFACE_INCLUDE_DIRECTORIES>)
    string(APPEND vtk_libraries " -L$<TARGET_FILE_DIR:${module}> -l:$<TARGET_SONAME_FILE_NAME:${module}>")
  endforeach()
  # The compiler has its own place for the system's headers, which must stay last.
  set(vtk_folders $<FILTER:$<REMOVE_DUPLICATES:${vtk_folders}>,EXCLUDE,^/usr/include/?$>)
  if(modules)
    set(vtk_flags " -I$<JOIN:${vtk_folders}, -I>")
  endif()
  file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  set(file ${CMAKE_BINARY_DIR}/pkgconfig/vemo-${name}.pc)
  file(CONFIGURE OUTPUT ${file}.in CONTENT
"prefix=\${pcfiledir}/@prefix@
libdir=\${prefix}/@CMAKE_INSTALL_LIBDIR@
includedir=\${prefix}/@CMAKE_INSTALL_INCLUDEDIR@

Name: vemo-@name@
Description: Import of scenes with simulation results: @name@
Version: @PROJECT_VERSION@
Requires: @requires@
Cflags: -I\${includedir}@vtk_flags@
Libs: -L\${libdir} -lvemo_@name@@vtk_libraries@
" @ONLY)
  file(GENERATE OUTPUT ${file} INPUT ${file}.in)
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endfunction()

# vemo_component(NAME [PUBLIC ...] [PRIVATE ...]): how find_package(vemo COMPONENTS NAME) finds
# the library, and which of our libraries and of VTK's modules it needs. CMake
# looks at what a library links privately, too.
function(vemo_component name)
  cmake_parse_arguments(ARG "" "" "PUBLIC;PRIVATE" ${ARGN})
  set(ours ${ARG_PUBLIC} ${ARG_PRIVATE})
  set(modules ${ours})
  list(FILTER ours INCLUDE REGEX "^vemo_")
  list(TRANSFORM ours REPLACE "^vemo_" "")
  list(FILTER modules INCLUDE REGEX "^VTK::")
  list(TRANSFORM modules REPLACE "^VTK::" "")
  string(JOIN " " ours ${ours})
  string(JOIN " " modules ${modules})
  set_property(GLOBAL APPEND_STRING PROPERTY vemo_components
    "set(vemo_${name}_components ${ours})\nset(vemo_${name}_vtk_modules ${modules})\n")
  set_property(GLOBAL APPEND PROPERTY vemo_component_names ${name})
  vemo_pkg_config(${name} ${ARG_PUBLIC})
  set(package runtime)
  if(name STREQUAL window)
    set(package window)
  endif()
  install(TARGETS vemo_${name} EXPORT vemo_${name} LIBRARY COMPONENT ${package} NAMELINK_COMPONENT dev)
  install(EXPORT vemo_${name} NAMESPACE vemo:: FILE vemo-${name}.cmake DESTINATION ${package_folder} COMPONENT dev)
endfunction()

# What libraries export, by name: exports.txt marks what is private to this project.
set(exports ${CMAKE_BINARY_DIR}/exports.map)
function(vemo_write_exports)
  set(list ${CMAKE_SOURCE_DIR}/cmake/exports.txt)
  set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} names REGEX " private$")
  list(TRANSFORM names REPLACE "^[a-z]+ (.*) private$" "\\1")
  set(private_symbols "")
  foreach(name IN LISTS names)
    set(whole_name "${name}[!a-zA-Z0-9_]*")
    string(APPEND private_symbols
      "      ${whole_name};\n      *?for?${name};\n      *?for?${whole_name};\n      *?to?${whole_name};\n")
  endforeach()
  configure_file(${CMAKE_SOURCE_DIR}/cmake/exports.map.in ${exports} @ONLY)
endfunction()
vemo_write_exports()

# vemo_library(NAME SOURCE_ROOT DIR FOLDERS ... [PUBLIC ...] [PRIVATE ...])
# The shared library vemo_NAME: all sources in the given folders below the source
# root. Its public headers are those in include/vemo/NAME, and nothing else is
# installed. Other projects link vemo::NAME. Its export macro is
# VEMO_NAME_EXPORT, from <vemo/NAME/Export.h>. Tests of what it does not export link
# vemo_NAME_objects instead, and no other library that links it.
function(vemo_library name)
  cmake_parse_arguments(ARG "" "SOURCE_ROOT" "FOLDERS;PUBLIC;PRIVATE" ${ARGN})
  set(target vemo_${name})
  set(objects ${target}_objects)
  set(patterns ${ARG_FOLDERS})
  list(TRANSFORM patterns PREPEND ${ARG_SOURCE_ROOT}/)
  list(TRANSFORM patterns APPEND "/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  add_library(${objects} OBJECT ${sources})
  target_include_directories(${objects} PUBLIC ${public_headers} ${generated_headers})
  target_link_libraries(${objects} PUBLIC ${ARG_PUBLIC} PRIVATE vemo_options ${ARG_PRIVATE})
  target_precompile_headers(${objects} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/precompiled.h)
  add_library(${target} SHARED $<TARGET_OBJECTS:${objects}>)
  add_library(vemo::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  vemo_export_header(${name})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${public_headers}> $<BUILD_INTERFACE:${generated_headers}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE $<BUILD_INTERFACE:vemo_options> ${ARG_PRIVATE})
  target_link_options(${target} PRIVATE LINKER:--version-script=${exports})
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${exports})
  vemo_component(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  install(DIRECTORY ${public_headers}/vemo/${name} ${generated_headers}/vemo/${name}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vemo COMPONENT dev FILES_MATCHING PATTERN "*.h")
endfunction()

# vemo_test(FOLDER LIBRARIES ...): one test program for one folder of tests,
# "vemo_tests_FOLDER".
function(vemo_test folder)
  set(name vemo_tests_${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vemo_options GTest::gmock GTest::gtest_main ${ARGN})
  target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/precompiled.h <gmock/gmock.h> <gtest/gtest.h>)
  # The label lets "ctest -L FOLDER" run those of one folder.
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 LABELS ${folder})
endfunction()
