#pragma once

#include <vemo/scenegraph/canvas/SceneCanvas.h>

namespace lum {

/// The root of one scene, with its four canvases.
class VEMO_SCENEGRAPH_EXPORT SceneNode final : public Node {
  LUM_NODE(SceneNode, Node)
  LUM_FIELD(Owned<SceneCanvas>, _modelCanvas)
  LUM_FIELD(Owned<SceneCanvas>, _foregroundCanvas)
  LUM_FIELD(Owned<SceneCanvas>, _backgroundCanvas)
  LUM_FIELD(Owned<SceneCanvas>, _orientationCanvas)

 public:
  /// The scene's content: the model.
  SceneCanvas& getModelCanvas() { return canvas(_modelCanvas, "ModelCanvas"); }
  /// In front of it: legends and the like.
  SceneCanvas& getForegroundCanvas() { return canvas(_foregroundCanvas, "ForegroundCanvas"); }
  /// Behind it.
  SceneCanvas& getBackgroundCanvas() { return canvas(_backgroundCanvas, "BackgroundCanvas"); }
  /// The triad that shows how the model is turned.
  SceneCanvas& getOrientationCanvas() { return canvas(_orientationCanvas, "OrientationCanvas"); }

  /// Null when a canvas was never asked for.
  SceneCanvas* hasModelCanvas() const { return _modelCanvas.get(); }
  SceneCanvas* hasForegroundCanvas() const { return _foregroundCanvas.get(); }
  SceneCanvas* hasBackgroundCanvas() const { return _backgroundCanvas.get(); }
  SceneCanvas* hasOrientationCanvas() const { return _orientationCanvas.get(); }

 private:
  SceneCanvas& canvas(Owned<SceneCanvas>& slot, const char* name);
};

}  // namespace lum
