#include "FoundFindings.h"

#include "OpaqueClass.h"
#include "Text.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// Of the enumeration in vemoscene/_severity.py.
py::object toEnumerator(Severity severity) {
  std::string name(severityName(severity));
  std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::toupper(c); });
  return py::module_::import("vemoscene._severity").attr("Severity").attr(name.c_str());
}

}  // namespace

py::tuple toTuple(const std::vector<Finding>& findings) {
  py::tuple converted(findings.size());
  for (std::size_t i = 0; i < findings.size(); ++i) {
    converted[i] = py::cast(findings[i]);
  }
  return converted;
}

void defineFinding(py::module_& module) {
  const auto describeFinding = [](const Finding& self) { return toPython(describe(self)); };
  defineOpaqueClass<Finding>(module, "Finding",
                             R"(What a scene file loses or changes when it is read, converted or drawn.)")
      .def_property_readonly(
          "code", [](const Finding& self) { return self.getKind().name; },
          R"(Such as "array-left-out"; does not change between versions.)")
      .def_property_readonly(
          "severity", [](const Finding& self) { return toEnumerator(self.getSeverity()); },
          R"(How much it matters.)")
      .def_property_readonly(
          "text", [](const Finding& self) { return toPython(self.text); },
          R"(A sentence without a full stop.)")
      .def_property_readonly(
          "entry", [](const Finding& self) { return toOptional(self.entry); },
          R"(The entry of the archive concerned.)")
      .def_property_readonly(
          "item", [](const Finding& self) { return toOptional(self.itemPath); },
          R"(The item of an archive, such as "scene/wing/pressure".)")
      .def_property_readonly(
          "line", [](const Finding& self) { return toOptional(self.line); },
          R"(The line of the scene description, from 1.)")
      .def_property_readonly(
          "attribute", [](const Finding& self) { return toOptional(self.attribute); },
          R"(The attribute of the item.)")
      .def_property_readonly(
          "node_path", [](const Finding& self) { return toOptional(self.nodePath); },
          R"(Of the node that is drawn, as Node.path.)")
      .def("__str__", describeFinding)
      .def("__repr__", [describeFinding](const Finding& self) {
        return py::str("<Finding {!r}>").format(describeFinding(self));
      });
}

}  // namespace vemo::python
