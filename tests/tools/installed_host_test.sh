#!/bin/bash
# Builds examples/host against an installation, as other projects do with CMake and with
# pkg-config, and again after the installation was moved:
#   installed_host_test.sh SOURCE_FOLDER BUILD_FOLDER [PYTHON]
# With PYTHON also uses the Python module.
set -euo pipefail
sources=$1 build=$2 python=${3:-}
folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
fail() { echo "$*" >&2; exit 1; }

build_and_run_host() { # BUILD_FOLDER PREFIX
  local output
  cmake -S "$folder/host" -B "$1" -G Ninja "-DCMAKE_PREFIX_PATH=$2" >"$folder/log" 2>&1 &&
    cmake --build "$1" >>"$folder/log" 2>&1 || fail "$(cat "$folder/log")"
  output=$("$1/host" "$sources/examples/wing.zip")
  [[ $output == *" meshes" ]] || fail "the host prints \"$output\""
}

# Without CMake, by the flags of pkg-config alone.
compile_host() { # PREFIX
  local flags
  flags=$(PKG_CONFIG_PATH=$1/lib/pkgconfig pkg-config --cflags --libs vemo-import) || fail "vemo-import is not found"
  # shellcheck disable=SC2086
  c++ -std=c++20 "$folder/host/main.cpp" -o "$folder/by-flags" $flags "-Wl,-rpath,$1/lib" >"$folder/log" 2>&1 ||
    fail "$(cat "$folder/log")"
  [[ $("$folder/by-flags" "$sources/examples/wing.zip") == *" meshes" ]] || fail "the host that pkg-config links does not run"
}

link_components() { # PREFIX COMPONENT ...
  local prefix=$1
  shift
  rm -rf -- "$folder/components"
  mkdir -- "$folder/components"
  echo "int main() {}" >"$folder/components/main.cpp"
  cat >"$folder/components/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(components LANGUAGES C CXX)
find_package(vemo REQUIRED COMPONENTS $*)
add_executable(components main.cpp)
target_link_libraries(components PRIVATE ${*/#/vemo::})
get_property(targets DIRECTORY PROPERTY IMPORTED_TARGETS)
message(STATUS "targets: \${targets}")
END
  cmake -S "$folder/components" -B "$folder/components/build" -G Ninja "-DCMAKE_PREFIX_PATH=$prefix" 2>&1 &&
    cmake --build "$folder/components/build" 2>&1
}

cmake --install "$build" --prefix "$folder/installed" >/dev/null
cp -r -- "$sources/examples/host" "$folder/host"
build_and_run_host "$folder/first" "$folder/installed"
compile_host "$folder/installed"
mv -- "$folder/installed" "$folder/moved"
build_and_run_host "$folder/second" "$folder/moved"
compile_host "$folder/moved"
"$folder/moved/bin/vemoscene" info "$sources/examples/wing.zip" >/dev/null || fail "the moved program does not run"
if [[ -n $python ]]; then
  PYTHONPATH=$folder/moved/lib/python3/dist-packages "$python" -c '
import sys, vemoscene
assert vemoscene.__file__.startswith(sys.argv[1]) and vemoscene.open(sys.argv[2]).root.children
' "$folder/moved" "$sources/examples/wing.zip" || fail "the moved Python module does not work"
fi

targets=$(link_components "$folder/moved" scenegraph render) || fail "$targets"
[[ $targets == *vemo::render* && $targets != *vemo::import* && $targets != *vemo::window* ]] ||
  fail "other components than those requested were found: $targets"
[[ $targets != *Qt5::* ]] || fail "drawing needs Qt: $targets"
targets=$(link_components "$folder/moved" vtk) || fail "$targets"
if [[ -e $folder/moved/lib/cmake/vemo/vemo-window.cmake ]]; then
  targets=$(link_components "$folder/moved" window) || fail "$targets"
fi
! link_components "$folder/moved" nonsense >/dev/null || fail "a component that does not exist was found"
