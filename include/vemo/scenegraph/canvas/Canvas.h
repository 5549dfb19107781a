#pragma once

#include <vemo/scenegraph/attributes/AttributesOwner.h>
#include <vemo/scenegraph/canvas/BaseCanvasAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>

namespace lum {

/// A part of the window with the drawables that are visible in it. Getters
/// that return references create their object on first access.
class VEMO_SCENEGRAPH_EXPORT Canvas : public Node, public AttributesOwner {
  LUM_FIELDS_AFTER(Node)
  LUM_LIST(_attributes, &_attributes)
  LUM_FIELD(Owned<DrawableCollection>, _drawables)

 public:
  using Node::Node;

  DrawableCollection& getDrawableCollection() { return _drawables.ensure(*this); }
  BaseCanvasAttributes& getBaseCanvasAttributes() { return getAttributes<BaseCanvasAttributes>(); }

  /// Null when nothing was ever added to the canvas.
  DrawableCollection* hasDrawableCollection() const { return _drawables.get(); }

 protected:
  ~Canvas() override = default;
  Node& self() final { return *this; }
};

}  // namespace lum
