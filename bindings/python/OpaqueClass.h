#pragma once

#include <pybind11/pybind11.h>
#include <utility>

namespace vemo::python {

/// Leaves making objects of a class to the library: Python can neither construct nor pickle them. Without
/// this, __new__ gives an object without a value, whose use crashes, and the oldest forms of pickle call
/// a constructor of pybind11 that ends the process.
void forbidMaking(const pybind11::handle& pythonClass);

/// @param arguments as of pybind11::class_, without the constructor
template <class T, class... ARGUMENTS>
pybind11::class_<T> defineOpaqueClass(ARGUMENTS&&... arguments) {
  pybind11::class_<T> defined(std::forward<ARGUMENTS>(arguments)...);
  forbidMaking(defined);
  return defined;
}

}  // namespace vemo::python
