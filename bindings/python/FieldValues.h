#pragma once

#include <pybind11/pybind11.h>

namespace vemo::python {

struct NodeHandle;

/// A read-only mapping of the node's fields, in order, by name.
pybind11::object getFields(const NodeHandle& node);

}  // namespace vemo::python
