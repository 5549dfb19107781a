#pragma once

#include <vemo/scenegraph/Node.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace lum {

/// Whether a node may become the owner of another: it has no owner and is not an
/// ancestor of the new owner.
inline bool canOwn(const Node& owner, const Node& node) {
  if (node.getOwner() != nullptr) {
    return false;
  }
  for (const Node* above = &owner; above != nullptr; above = above->getOwner()) {
    if (above == &node) {
      return false;
    }
  }
  return true;
}

/// Calls visit(Node&) for a node and all that it owns, owners first, siblings
/// in order. What a node owns is asked for after its own visit. Needs no stack
/// depth.
template <class Visit>
void forEachNode(Node& root, Visit&& visit) {
  std::vector<Node*> waiting{&root};
  FieldList fields;
  while (!waiting.empty()) {
    Node& node = *waiting.back();
    waiting.pop_back();
    visit(node);
    const auto start = static_cast<std::ptrdiff_t>(waiting.size());
    node.appendDependents(waiting, fields);
    std::reverse(waiting.begin() + start, waiting.end());
  }
}

/// Calls visit(T&) for every node of type T among a node and all that it owns.
template <class T, class Visit>
void forEachNodeOf(Node& root, Visit&& visit) {
  forEachNode(root, [&visit](Node& node) {
    if (auto* match = dynamic_cast<T*>(&node)) {
      visit(*match);
    }
  });
}

}  // namespace lum
