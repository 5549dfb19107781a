#pragma once

#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

namespace lum {

/// Draws the poly data that it owns. A poly data node that is added without a
/// name gets one that is free among those already there ("PolyDataNode",
/// "PolyDataNode2", ...), so that each has a key of its own to be coloured by.
class VEMO_SCENEGRAPH_EXPORT GeometryDrawable : public Drawable {
 public:
  using Drawable::Drawable;

  /// Created on first access.
  ColorAttributes* getColorAttributes() override { return &getAttributes<ColorAttributes>(); }

  bool addNode(Node& node) override;

 protected:
  ~GeometryDrawable() override = default;
  bool accepts(const Node& node) const override {
    return dynamic_cast<const PolyDataNode*>(&node) != nullptr;
  }
};

}  // namespace lum
