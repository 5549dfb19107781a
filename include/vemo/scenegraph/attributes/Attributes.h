#pragma once

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Traversal.h>

namespace lum {

/// One aspect of how a drawable or canvas looks. Attributes are in the
/// attributes collection of what they describe, at most one of each class.
class VEMO_SCENEGRAPH_EXPORT Attributes : public Node {
 public:
  using Node::Node;

  /// What these attributes describe; null outside a collection.
  Node* getSubject() const { return getOwner() != nullptr ? getOwner()->getOwner() : nullptr; }

 protected:
  ~Attributes() override = default;

  /// Calls change(T&) for these attributes and, if `recursive`, for those of
  /// the same class T of all that the subject owns.
  template <class T, class Change>
  void changeAll(bool recursive, Change&& change) {
    Node* const subject = getSubject();
    if (recursive && subject != nullptr) {
      forEachNodeOf<T>(*subject, change);
    } else {
      change(static_cast<T&>(*this));
    }
  }
};

}  // namespace lum
