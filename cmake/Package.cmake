# Debian packages, made by "tools/make-packages".
include(DebianPackages)

set(same_version "(= ${PROJECT_VERSION})")
set(runtime libvemo${PROJECT_VERSION_MAJOR})
vemo_package(runtime ${runtime} "libraries that open and draw scenes with simulation results"
  DEPENDS fonts-dejavu-core libgl1-mesa-dri)
vemo_package(tools vemoscene "inspect, convert and draw scenes with simulation results"
  DEPENDS "${runtime} ${same_version}")
set(linked "${runtime} ${same_version}")
if(VEMO_BUILD_WINDOW)
  vemo_package(window vemoscene-window "window to explore scenes with simulation results"
    DEPENDS "vemoscene ${same_version}")
  list(APPEND linked "vemoscene-window ${same_version}" libvtk9-qt-dev qtbase5-dev)
endif()
if(VEMO_BUILD_PYTHON)
  # For this version of Python only.
  math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
  vemo_package(python python3-vemoscene "scenes with simulation results in Python, with numpy and VTK"
    DEPENDS "${runtime} ${same_version}" "python3 (>= ${Python_VERSION_MAJOR}.${Python_VERSION_MINOR})"
            "python3 (<< ${Python_VERSION_MAJOR}.${next_minor})" python3-numpy python3-vtk9)
  set(scripts ${CMAKE_CURRENT_SOURCE_DIR}/cmake/python-package)
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA ${scripts}/postinst ${scripts}/prerm)
endif()
vemo_package(dev libvemo-dev "headers and package files of libvemo" DEPENDS ${linked} libvtk9-dev)
include(CPack)
