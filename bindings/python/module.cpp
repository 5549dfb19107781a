#include "Arrays.h"
#include "FoundFindings.h"
#include "NodeHandle.h"
#include "Operations.h"

#include <pybind11/pybind11.h>

PYBIND11_MODULE(_native, module) {
  vemo::python::defineFinding(module);
  vemo::python::defineCells(module);
  vemo::python::defineNode(module);
  vemo::python::defineOperations(module);
}
