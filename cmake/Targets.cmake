include(GNUInstallDirs)

# What is installed finds its libraries wherever the folder is moved.
set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/../${CMAKE_INSTALL_LIBDIR})

include(GenerateExportHeader)

# vemo_library(NAME INCLUDE_ROOT DIR FOLDERS ... [PUBLIC ...] [PRIVATE ...])
# A shared library made of every source in the given folders below the include
# root. Its export macro is NAME_EXPORT in upper case, from "NAME_export.h".
function(vemo_library name)
  cmake_parse_arguments(ARG "" "INCLUDE_ROOT" "FOLDERS;PUBLIC;PRIVATE" ${ARGN})
  set(patterns ${ARG_FOLDERS})
  list(TRANSFORM patterns PREPEND ${ARG_INCLUDE_ROOT}/)
  list(TRANSFORM patterns APPEND "/*.cpp")
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  add_library(${name} SHARED ${sources})
  add_library(vemo::${name} ALIAS ${name})
  generate_export_header(${name} EXPORT_FILE_NAME ${CMAKE_BINARY_DIR}/export/${name}_export.h)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${ARG_INCLUDE_ROOT}> $<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/export>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vemo>)
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE $<BUILD_INTERFACE:vemo_options> ${ARG_PRIVATE})
  install(TARGETS ${name} EXPORT vemo)
  install(FILES ${CMAKE_BINARY_DIR}/export/${name}_export.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vemo)
  foreach(folder IN LISTS ARG_FOLDERS)
    file(GLOB headers CONFIGURE_DEPENDS ${ARG_INCLUDE_ROOT}/${folder}/*.h)
    install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vemo/${folder})
  endforeach()
endfunction()

# vemo_test(FOLDER LIBRARIES ...): one test program for one folder of tests,
# "vemo_tests_FOLDER".
function(vemo_test folder)
  set(name vemo_tests_${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE vemo_options GTest::gmock GTest::gtest_main ${ARGN})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
