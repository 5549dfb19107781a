# How all of our own code is compiled.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

file(RELATIVE_PATH path_from_build ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
add_library(vemo_options INTERFACE)
# Headers that are not public stand beside their sources.
target_include_directories(vemo_options INTERFACE ${CMAKE_SOURCE_DIR}/base/src ${CMAKE_SOURCE_DIR}/visualization/src)
target_compile_options(vemo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${VEMO_WARNINGS_AS_ERRORS}>:-Werror>
  # Source paths in log lines and errors are those of the repository, also when
  # ccache makes them relative (CCACHE_BASEDIR).
  -fmacro-prefix-map=${CMAKE_SOURCE_DIR}/= -fmacro-prefix-map=${path_from_build}=)
if(VEMO_SANITIZE)
  target_compile_options(vemo_options INTERFACE
    -fsanitize=${VEMO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vemo_options INTERFACE -fsanitize=${VEMO_SANITIZE})
endif()
