// The Python module vemoscene._vtk: VTK's wrapping of vtkVemoSceneImporter.

#include <vtkPython.h>

extern "C" void PyVTKAddFile_vtkVemoSceneImporter(PyObject* dictionary);

namespace {

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "vemoscene._vtk",
                          "Scenes in the renderers of VTK programs.",
                          -1,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

/// Whether the class that it derives from is known to VTK's wrapping.
bool importBase() {
  PyObject* const base = PyImport_ImportModule("vtkmodules.vtkIOImport");
  Py_XDECREF(base);
  return base != nullptr;
}

}  // namespace

// Python makes the name from that of the module.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
PyMODINIT_FUNC PyInit__vtk() {
  PyObject* const module = importBase() ? PyModule_Create(&definition) : nullptr;
  if (module != nullptr) {
    PyVTKAddFile_vtkVemoSceneImporter(PyModule_GetDict(module));
  }
  return module;
}
