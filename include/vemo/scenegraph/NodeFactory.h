#pragma once

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <string>
#include <vector>

namespace lum {

/// A new node of the class that the initializer names; empty when the class is
/// unknown or abstract.
VEMO_SCENEGRAPH_EXPORT Ptr<Node> createNode(const NodeInitializer& initializer);

using NodeConstructor = Ptr<Node> (*)(const NodeInitializer&);

/// What makes nodes of the class of that name; null when createNode makes none.
VEMO_SCENEGRAPH_EXPORT NodeConstructor findNodeConstructor(const std::string& className);

/// The names of the classes that createNode knows, sorted.
VEMO_SCENEGRAPH_EXPORT std::vector<std::string> getNodeClassNames();

}  // namespace lum
