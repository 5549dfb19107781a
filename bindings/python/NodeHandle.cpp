#include "NodeHandle.h"

#include "FieldValues.h"
#include "LibraryTurn.h"
#include "OpaqueClass.h"
#include "Text.h"
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkPolyData.h>
#include <vtkPythonUtil.h>

#include <functional>
#include <optional>
#include <pybind11/stl.h>
#include <string>
#include <utility>
#include <vector>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// A node and all that it owns, owners first, or those of one class.
class NodeWalk {
 public:
  NodeWalk(const NodeHandle& start, std::optional<std::string> className)
      : _graph(start.graph), _waiting{start.node}, _className(std::move(className)) {}

  py::object next() {
    while (!_waiting.empty()) {
      const lum::Node* const node = _waiting.back();
      _waiting.pop_back();
      const std::vector<lum::Node*> dependents = node->getDependents();
      _waiting.insert(_waiting.end(), dependents.rbegin(), dependents.rend());
      if (!_className || node->className() == *_className) {
        return toPython(_graph, node);
      }
    }
    throw py::stop_iteration();
  }

 private:
  std::shared_ptr<Graph> _graph;
  std::vector<const lum::Node*> _waiting;
  std::optional<std::string> _className;
};

py::tuple getChildren(const NodeHandle& self) {
  const std::vector<lum::Node*> nodes = self.node->getDependents();
  py::tuple children(nodes.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    children[i] = toPython(self.graph, nodes[i]);
  }
  return children;
}

py::object getQualifiedName(const NodeHandle& self) {
  const std::optional<std::string>& name = self.node->getQualifiedName();
  return name ? py::object(toPython(*name)) : py::none();
}

py::str getPath(const NodeHandle& self) {
  return toPython(self.graph->getPaths().getPath(*self.node).value());
}

py::object find(const NodeHandle& self, const py::str& path) {
  return toPython(self.graph, self.graph->getPaths().find(*self.node, fromPython(path)));
}

/// Python's own object of the VTK class.
py::object getPolyData(const NodeHandle& self) {
  const auto* const polyData = dynamic_cast<const lum::PolyDataNode*>(self.node);
  if (polyData == nullptr) {
    return py::none();
  }
  return py::reinterpret_steal<py::object>(vtkPythonUtil::GetObjectFromPointer(polyData->getPolyData()));
}

py::str describe(const NodeHandle& self) {
  return py::str("<{} {!r}>").format(self.node->className(), toPython(self.node->getName()));
}

}  // namespace

Graph::~Graph() {
  releaseInTurn(std::move(_root));
}

py::object toPython(const std::shared_ptr<Graph>& graph, const lum::Node* node) {
  return node != nullptr ? py::cast(NodeHandle{graph, node}) : py::none();
}

void defineNode(py::module_& module) {
  // Objects of VTK's classes can be handed over once their Python module is there.
  py::module_::import("vtkmodules.vtkCommonDataModel");
  defineOpaqueClass<NodeWalk>(module, "NodeWalk")
      .def("__iter__", [](py::object self) { return self; })
      .def("__next__", &NodeWalk::next);
  defineOpaqueClass<NodeHandle>(
      module, "Node",
      R"(A node of a scene graph, which it keeps alive. Equal to each other object of the same node.)")
      .def_property_readonly(
          "class_name", [](const NodeHandle& self) { return self.node->className(); },
          R"(The class, such as "SurfaceDrawable".)")
      .def_property_readonly(
          "name", [](const NodeHandle& self) { return toPython(self.node->getName()); },
          R"(The name; often that of the class.)")
      .def_property_readonly("qualified_name", getQualifiedName, R"(Another name that the file may state.)")
      .def_property_readonly(
          "path", getPath,
          R"(The names from below the root down to this node, such as "ModelCanvas/DrawableCollection".

The second of several siblings of one name has "~#2" behind it. In a name, "~" is "~0" and "/" is "~1"; an
empty name is "~e".)")
      .def_property_readonly(
          "parent", [](const NodeHandle& self) { return toPython(self.graph, self.node->getOwner()); },
          R"(The node that owns this one; None for a root.)")
      .def_property_readonly("children", getChildren, R"(The nodes that this one owns, in order.)")
      .def_property_readonly("fields", getFields,
                             R"(All values of the node by name.

Numbers, texts, tuples of numbers, names of enumerators, None for a value that was never set; arrays as
read-only numpy arrays without a copy, one row a tuple; dicts of these; Cells; nodes.)")
      .def_property_readonly(
          "poly_data", getPolyData,
          R"(A new vtkPolyData of vtkmodules with the arrays of a PolyDataNode; None for other nodes.)")
      .def("find", find, py::arg("path"), R"(The node of that path below this node.)")
      .def(
          "walk",
          [](const NodeHandle& self, std::optional<std::string> className) {
            return NodeWalk(self, std::move(className));
          },
          py::arg("class_name") = py::none(),
          R"(The node and all below it, owners first; only those of a class if one is given.)")
      .def("__eq__",
           [](const NodeHandle& self, const py::object& other) {
             return py::isinstance<NodeHandle>(other) && other.cast<const NodeHandle&>().node == self.node;
           })
      .def("__hash__", [](const NodeHandle& self) { return std::hash<const lum::Node*>()(self.node); })
      .def("__repr__", describe);
}

}  // namespace vemo::python
