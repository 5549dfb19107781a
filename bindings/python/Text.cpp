#include "Text.h"

namespace py = pybind11;

namespace vemo::python {

namespace {

constexpr const char* ERRORS = "surrogateescape";

/// Takes over a new reference, or throws the error that Python has set.
template <class Object>
Object take(PyObject* object) {
  if (object == nullptr) {
    throw py::error_already_set();
  }
  return py::reinterpret_steal<Object>(object);
}

}  // namespace

py::str toPython(std::string_view text) {
  return take<py::str>(PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), ERRORS));
}

std::string fromPython(const py::str& text) {
  return take<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", ERRORS));
}

py::object toOptional(std::string_view text) {
  return text.empty() ? py::object(py::none()) : toPython(text);
}

py::object toOptional(int number) {
  return number == 0 ? py::object(py::none()) : py::int_(number);
}

}  // namespace vemo::python
