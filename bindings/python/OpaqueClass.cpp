#include "OpaqueClass.h"

#include <string>

namespace py = pybind11;

namespace vemo::python {

namespace {

[[noreturn]] void refuseToPickle(const py::object& self, const py::args&) {
  throw py::type_error("cannot pickle '" + py::cast<std::string>(py::type::of(self).attr("__name__")) +
                       "' object");
}

}  // namespace

void forbidMaking(const py::handle& pythonClass) {
  // Also object.__new__ refuses classes without this function.
  auto* const type = reinterpret_cast<PyTypeObject*>(pythonClass.ptr());
  type->tp_new = nullptr;
  PyType_Modified(type);
  for (const char* const name : {"__reduce__", "__reduce_ex__"}) {
    py::setattr(pythonClass, name,
                py::cpp_function(refuseToPickle, py::name(name), py::is_method(pythonClass)));
  }
}

}  // namespace vemo::python
