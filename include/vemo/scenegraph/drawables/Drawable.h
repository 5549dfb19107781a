#pragma once

#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/attributes/AttributesOwner.h>
#include <vemo/scenegraph/attributes/BaseAttributes.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>

namespace lum {

/// Something visible, described by its attributes. It may own further nodes:
/// the geometry that it draws, or other drawables.
class VEMO_SCENEGRAPH_EXPORT Drawable : public CollectionNode, public AttributesOwner {
 public:
  using CollectionNode::CollectionNode;

  /// Created on first access.
  BaseAttributes& getBaseAttributes() { return getAttributes<BaseAttributes>(); }

  /// Null for a kind of drawable that has no colour of its own.
  virtual ColorAttributes* getColorAttributes() { return nullptr; }

  void listFields(FieldList& fields) override;

 protected:
  ~Drawable() override = default;
  Node& self() final { return *this; }
};

}  // namespace lum
