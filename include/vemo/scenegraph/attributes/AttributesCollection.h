#pragma once

#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
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

/// Gives a node class attributes: the collection is made when it is first
/// asked for.
class AttributesOwner {
 public:
  AttributesCollection& getAttributesCollection() { return _attributes.ensure(self()); }

  /// The attributes of class T, made when there are none.
  template <class T>
  T& getAttributes() {
    return getAttributesCollection().template findOrCreate<T>();
  }

  /// The attributes of class T; null when there are none.
  template <class T>
  T* findAttributes() const {
    return _attributes.get() != nullptr ? _attributes.get()->template find<T>() : nullptr;
  }

 protected:
  ~AttributesOwner() = default;

  /// The node that owns the attributes.
  virtual Node& self() = 0;

  Owned<AttributesCollection> _attributes;
};

}  // namespace lum
