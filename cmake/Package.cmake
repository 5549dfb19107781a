# Debian packages, made by "tools/make-packages": one for each component of the
# installation, with dependencies found by the libraries that the files need.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vemoscene)
set(CPACK_PACKAGE_VENDOR vemoscene)
set(CPACK_PACKAGE_CONTACT "The vemoscene developers <vemoscene@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "import of scenes with simulation results")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_OUTPUT_FILE_PREFIX packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries of one package are not installed while another is made.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# vemo_package(COMPONENT NAME SUMMARY [DEPENDS ...]): DEPENDS are packages beside those that the files
# need.
function(vemo_package component name summary)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  string(TOUPPER ${component} key)
  list(JOIN ARG_DEPENDS ", " depends)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION ${summary} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

set(CPACK_COMPONENTS_ALL "")
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
