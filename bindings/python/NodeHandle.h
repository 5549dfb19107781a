#pragma once

#include "scenegraph/inspect/NodePaths.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <memory>
#include <pybind11/pybind11.h>

namespace vemo::python {

/// A graph that Python objects hold together. Its paths need the interpreter lock.
class Graph {
 public:
  explicit Graph(lum::Ptr<lum::Node> root) : _root(std::move(root)), _paths(*_root) {}
  ~Graph();
  Graph(const Graph&) = delete;
  Graph& operator=(const Graph&) = delete;

  const lum::Node& getRoot() const { return *_root; }
  lum::NodePaths& getPaths() { return _paths; }

 private:
  lum::Ptr<lum::Node> _root;
  lum::NodePaths _paths;
};

/// A node as Python sees it, which keeps its whole graph alive.
struct NodeHandle {
  std::shared_ptr<Graph> graph;
  const lum::Node* node;
};

/// A node of the graph; None for null.
pybind11::object toPython(const std::shared_ptr<Graph>& graph, const lum::Node* node);

void defineNode(pybind11::module_& module);

}  // namespace vemo::python
