#pragma once

#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/attributes/BaseAttributes.h>
#include <vemo/scenegraph/attributes/ColorAttributes.h>

namespace lum {

/// Something that is seen, described by its attributes. It may own further
/// nodes: the geometry that it draws, or other drawables.
class VEMO_SCENEGRAPH_EXPORT Drawable : public CollectionNode, public AttributesOwner {
 public:
  using CollectionNode::CollectionNode;

  /// Made when they are first asked for.
  BaseAttributes& getBaseAttributes() { return getAttributes<BaseAttributes>(); }

  /// Null for a kind of drawable that has no colour of its own.
  virtual ColorAttributes* getColorAttributes() { return nullptr; }

  void listFields(FieldList& fields) override;

 protected:
  ~Drawable() override = default;
  Node& self() final { return *this; }
};

/// Drawables that are seen, hidden, and moved together.
class VEMO_SCENEGRAPH_EXPORT DrawableCollection final : public Drawable {
  LUM_NODE(DrawableCollection, Drawable)

 protected:
  bool accepts(const Node& node) const override { return dynamic_cast<const Drawable*>(&node) != nullptr; }
};

}  // namespace lum
