#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace lum {

class JsonWriter;
class Node;

/// A name as a step of a path, in the form that JsonPrinter.h describes. So are those of
/// items in findings.
VEMO_SCENEGRAPH_EXPORT std::string escapeStep(std::string_view name);

/// The paths of nodes below a root, in the form that JsonPrinter.h
/// describes. The graph must not change meanwhile.
class VEMO_SCENEGRAPH_EXPORT NodePaths {
 public:
  explicit NodePaths(const Node& root) : _root(root) {}

  /// Writes the path as a text, or null for a node that the root does not own.
  void print(JsonWriter& json, const Node& node);

  /// Nothing for a node that the root does not own.
  std::optional<std::string> getPath(const Node& node);

  /// The last step of the path of a node that has an owner.
  std::string getStep(const Node& node);

  /// The node whose path would be this one if the start were the root; null when there
  /// is none.
  const Node* find(const Node& start, std::string_view path);

 private:
  std::optional<std::vector<const Node*>> getSteps(const Node& node) const;
  const Node* findDependent(const Node& owner, std::string_view step);
  void numberDependents(const Node& owner);

  const Node& _root;
  // Nodes whose dependents have been looked at.
  std::unordered_set<const Node*> _numbered;
  // Of those that have a sibling of the same name before them: from 2.
  std::unordered_map<const Node*, std::size_t> _numbers;
};

}  // namespace lum
