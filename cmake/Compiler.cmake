# What the targets of this project have in common.
include(CompilerSettings)

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
