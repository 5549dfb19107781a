# The libraries that we call. What is listed here, "tools/install-dependencies"
# installs.
find_package(VTK 9.1 REQUIRED COMPONENTS
  CommonCore CommonDataModel CommonExecutionModel CommonMath CommonTransforms
  FiltersCore FiltersGeneral FiltersSources IOImage
  RenderingCore RenderingFreeType RenderingOpenGL2 RenderingAnnotation)
find_package(ZLIB REQUIRED)
find_package(EXPAT REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(minizip REQUIRED IMPORTED_TARGET minizip)
pkg_check_modules(xxhash REQUIRED IMPORTED_TARGET libxxhash)
find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
find_package(OpenGL REQUIRED COMPONENTS EGL OpenGL)
find_package(GLEW REQUIRED)
if(VEMO_BUILD_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()
if(VEMO_BUILD_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()
