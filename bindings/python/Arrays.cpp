#include "Arrays.h"

#include "OpaqueClass.h"
#include "scenegraph/ArrayType.h"

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <memory>
#include <pybind11/numpy.h>
#include <utility>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// A Python object that keeps a value alive.
template <class Value>
py::capsule keep(Value value) {
  return py::capsule(std::make_unique<Value>(std::move(value)).release(),
                     [](void* kept) { delete static_cast<Value*>(kept); });
}

py::array makeReadOnly(py::array array) {
  array.attr("flags").attr("writeable") = false;
  return array;
}

struct Cells {
  vtkSmartPointer<vtkCellArray> cells;

  py::object getOffsets() const { return toNumpy(cells->GetOffsetsArray()); }
  py::object getConnectivity() const { return toNumpy(cells->GetConnectivityArray()); }
  py::ssize_t getCount() const { return cells->GetNumberOfCells(); }

  /// The points of a cell.
  py::object at(py::ssize_t index) const {
    const py::ssize_t fromStart = index < 0 ? index + getCount() : index;
    if (fromStart < 0 || fromStart >= getCount()) {
      throw py::index_error("there are " + std::to_string(getCount()) + " cells");
    }
    const py::object offsets = getOffsets();
    return getConnectivity()[py::slice(offsets[py::int_(fromStart)], offsets[py::int_(fromStart + 1)],
                                       py::none())];
  }
};

}  // namespace

py::object toNumpy(vtkDataArray* array) {
  if (array == nullptr) {
    return py::none();
  }
  std::vector<py::ssize_t> shape{array->GetNumberOfTuples()};
  if (array->GetNumberOfComponents() != 1) {
    shape.push_back(array->GetNumberOfComponents());
  }
  return makeReadOnly(py::array(py::dtype(lum::arrayTypeName(*array)), std::move(shape),
                                array->GetVoidPointer(0), keep(vtkSmartPointer<vtkDataArray>(array))));
}

py::object toNumpy(const lum::SharedNumbers& numbers) {
  const std::vector<double>& values = numbers.get();
  return makeReadOnly(py::array_t<double>(std::ssize(values), values.data(), keep(numbers)));
}

py::object toCells(vtkCellArray* cells) {
  return cells != nullptr ? py::cast(Cells{cells}) : py::none();
}

void defineCells(py::module_& module) {
  defineOpaqueClass<Cells>(module, "Cells", R"(Cells of one kind: a sequence of the points of each.)")
      .def_property_readonly("offsets", &Cells::getOffsets,
                             R"(Where each cell begins in the connectivity, and where the last one ends.)")
      .def_property_readonly("connectivity", &Cells::getConnectivity,
                             R"(The points of all cells, one after the other.)")
      .def("__len__", &Cells::getCount)
      .def("__getitem__", &Cells::at)
      .def("__repr__",
           [](const Cells& cells) { return "<Cells: " + std::to_string(cells.getCount()) + ">"; });
}

}  // namespace vemo::python
