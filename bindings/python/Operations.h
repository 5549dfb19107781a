#pragma once

#include <pybind11/pybind11.h>

namespace vemo::python {

/// What the functions in vemoscene/__init__.py are made of. Paths are bytes.
void defineOperations(pybind11::module_& module);

}  // namespace vemo::python
