#pragma once

#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/canvas/CameraAttributes.h>
#include <vemo/scenegraph/canvas/CanvasAttributes.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

/// A part of the window with the drawables that are seen in it. All that the
/// getters return is made when it is first asked for.
class VEMO_SCENEGRAPH_EXPORT Canvas : public Node, public AttributesOwner {
 public:
  using Node::Node;

  DrawableCollection& getDrawableCollection() { return _drawables.ensure(*this); }
  BaseCanvasAttributes& getBaseCanvasAttributes() { return getAttributes<BaseCanvasAttributes>(); }

  /// Null when nothing was ever put into the canvas.
  DrawableCollection* hasDrawableCollection() const { return _drawables.get(); }

  void listFields(FieldList& fields) override {
    Node::listFields(fields);
    fields.add("attributes", _attributes);
    fields.add("drawables", _drawables);
  }

 protected:
  ~Canvas() override = default;
  Node& self() final { return *this; }

 private:
  Owned<DrawableCollection> _drawables;
};

/// A canvas with a background, lights, clipping planes and a camera.
class VEMO_SCENEGRAPH_EXPORT SceneCanvas final : public Canvas {
  LUM_NODE(SceneCanvas, Canvas)

  BackgroundAttributes& getBackgroundAttributes() { return getAttributes<BackgroundAttributes>(); }
  LightingAttributes& getLightingAttributes() { return getAttributes<LightingAttributes>(); }
  ClipPlanesAttributes& getClipPlanesAttributes() { return getAttributes<ClipPlanesAttributes>(); }
  CameraAttributes& getCameraAttributes() { return getAttributes<CameraAttributes>(); }

  /// Null when the canvas has none.
  CameraAttributes* hasCameraAttributes() const { return findAttributes<CameraAttributes>(); }
};

}  // namespace lum
