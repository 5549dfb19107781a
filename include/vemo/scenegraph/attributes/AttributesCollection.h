#pragma once

#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The attributes of one canvas or drawable, at most one of each class.
class VEMO_SCENEGRAPH_EXPORT AttributesCollection final : public CollectionNode {
  LUM_NODE(AttributesCollection, CollectionNode)

 protected:
  bool accepts(const Node& node) const override {
    return dynamic_cast<const Attributes*>(&node) != nullptr && find(node.className()) == nullptr;
  }
};

}  // namespace lum
