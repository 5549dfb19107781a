#pragma once

#include <vemo/scenegraph/CollectionNode.h>

namespace lum {

/// A collection that takes nodes of one type only.
template <class T>
class CollectionOf : public CollectionNode {
 public:
  using CollectionNode::CollectionNode;

 protected:
  ~CollectionOf() override = default;
  bool accepts(const Node& node) const override { return dynamic_cast<const T*>(&node) != nullptr; }
};

}  // namespace lum
