#pragma once

#include <vemo/scenegraph/Finding.h>

#include <pybind11/pybind11.h>
#include <vector>

namespace vemo::python {

pybind11::tuple toTuple(const std::vector<Finding>& findings);

void defineFinding(pybind11::module_& module);

}  // namespace vemo::python
