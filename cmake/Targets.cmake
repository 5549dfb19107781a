include(GNUInstallDirs)
include(GenerateExportHeader)

# What is installed finds its libraries wherever the folder is moved.
set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

# The one root of public headers, and where its generated part is.
set(public_headers ${CMAKE_SOURCE_DIR}/include)
set(generated_headers ${CMAKE_BINARY_DIR}/include)

# vemo_library(NAME SOURCE_ROOT DIR FOLDERS ... [PUBLIC ...] [PRIVATE ...])
# The shared library vemo_NAME: all sources in the given folders below the source
# root. Its public headers are those in include/vemo/NAME, and nothing else is
# installed. Other projects link vemo::NAME. Its export macro is
# VEMO_NAME_EXPORT, from <vemo/NAME/Export.h>.
function(vemo_library name)
  cmake_parse_arguments(ARG "" "SOURCE_ROOT" "FOLDERS;PUBLIC;PRIVATE" ${ARGN})
  set(target vemo_${name})
  set(patterns ${ARG_FOLDERS})
  list(TRANSFORM patterns PREPEND ${ARG_SOURCE_ROOT}/)
  list(TRANSFORM patterns APPEND "/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  add_library(${target} SHARED ${sources})
  add_library(vemo::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  generate_export_header(${target} EXPORT_FILE_NAME ${generated_headers}/vemo/${name}/Export.h)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${public_headers}> $<BUILD_INTERFACE:${generated_headers}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE $<BUILD_INTERFACE:vemo_options> ${ARG_PRIVATE})
  target_precompile_headers(${target} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/precompiled.h)
  install(TARGETS ${target} EXPORT vemo)
  install(DIRECTORY ${public_headers}/vemo/${name} ${generated_headers}/vemo/${name}
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vemo FILES_MATCHING PATTERN "*.h")
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
