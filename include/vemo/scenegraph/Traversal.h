#pragma once

#include <vemo/scenegraph/Node.h>

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
  while (!waiting.empty()) {
    Node& node = *waiting.back();
    waiting.pop_back();
    visit(node);
    const std::vector<Node*> dependents = node.getDependents();
    waiting.insert(waiting.end(), dependents.rbegin(), dependents.rend());
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
