#pragma once

#include <vemo/scenegraph/attributes/CameraAttributes.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/Canvas.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

namespace lum {

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
