#include "Arrays.h"
#include "FoundFindings.h"
#include "LibraryTurn.h"
#include "NodeHandle.h"
#include "Operations.h"

#include <exception>
#include <pybind11/pybind11.h>
#include <utility>

namespace {

void translate(std::exception_ptr exception) {
  try {
    std::rethrow_exception(std::move(exception));
  } catch (const vemo::python::TurnsEnded&) {
    PyErr_SetNone(PyExc_SystemExit);
  }
}

}  // namespace

PYBIND11_MODULE(_native, module) {
  pybind11::register_exception_translator(translate);
  vemo::python::defineFinding(module);
  vemo::python::defineCells(module);
  vemo::python::defineNode(module);
  vemo::python::defineOperations(module);
}
