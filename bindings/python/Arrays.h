#pragma once

#include <vemo/scenegraph/SharedNumbers.h>

#include <pybind11/pybind11.h>

class vtkCellArray;
class vtkDataArray;

namespace vemo::python {

// Numbers as numpy arrays that share their memory, keep it alive and cannot be written:
// nodes share arrays.

/// One row for each tuple; of one dimension if tuples have one component. None for null.
pybind11::object toNumpy(vtkDataArray* array);
pybind11::object toNumpy(const lum::SharedNumbers& numbers);

/// None for null.
pybind11::object toCells(vtkCellArray* cells);

void defineCells(pybind11::module_& module);

}  // namespace vemo::python
