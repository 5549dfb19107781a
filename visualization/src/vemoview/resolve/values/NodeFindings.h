#pragma once

#include "scenegraph/inspect/NodePaths.h"
#include <vemo/resolve/Export.h>
#include <vemo/scenegraph/Findings.h>

#include <map>
#include <set>
#include <string>
#include <tuple>

namespace lum {
class SceneNode;
}

namespace vemo {

/// During its lifetime, findings are about a node; about one within it during that of
/// a scope within this one.
class NodeScope {
 public:
  explicit NodeScope(const lum::Node& node);
  ~NodeScope();
  NodeScope(const NodeScope&) = delete;
  NodeScope& operator=(const NodeScope&) = delete;

 private:
  const lum::Node* _former;
};

/// The name that users know a node by: its own or, if that is the name of its class, the one of the
/// nearest owner with a name of its own.
VEMO_RESOLVE_EXPORT std::string wholeItemNameOf(const lum::Node& node);
/// The same for texts: a very long one is shortened.
VEMO_RESOLVE_EXPORT std::string itemNameOf(const lum::Node& node);

/// The findings about the nodes of a scene: each once, however often the scene is
/// resolved, and of one code no more than of a file that is read.
class NodeFindings {
 public:
  /// The scene must outlive it.
  explicit NodeFindings(const lum::SceneNode& scene) : _scene(scene) {}

  /// During its lifetime, findings name the node that they are about.
  class Scope {
   public:
    explicit Scope(NodeFindings& findings);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    void pass(Finding finding);

    NodeFindings& _findings;
    lum::NodePaths _paths;
    Findings::Sink _former;
  };

 private:
  const lum::SceneNode& _scene;
  /// Codes, node paths and texts.
  std::set<std::tuple<FindingCode, std::string, std::string>> _reported;
  std::map<FindingCode, int> _counts;
};

}  // namespace vemo
