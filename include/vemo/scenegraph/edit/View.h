#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Enumeration.h>
#include <vemo/scenegraph/Export.h>

#include <optional>

namespace lum {

class SceneNode;

/// Views along the axes, with z upwards, and x to the right from the front. The
/// isometric view has the front to the left, the right side to the right and the top.
LUM_ENUM(StandardView, (FRONT, "front"), (BACK, "back"), (LEFT, "left"), (RIGHT, "right"), (TOP, "top"),
         (BOTTOM, "bottom"), (ISO, "iso"))

struct ViewDirection {
  /// From the viewer into the scene.
  vemo::Vector3 forward;
  vemo::Vector3 viewUp;
};

VEMO_SCENEGRAPH_EXPORT ViewDirection directionOf(StandardView view);

/// Shows all visible parts of the model in parallel projection.
VEMO_SCENEGRAPH_EXPORT void setView(SceneNode& scene, StandardView view);

struct Viewpoint {
  vemo::Vector3 position;
  vemo::Vector3 focalPoint;
  vemo::Vector3 viewUp;
  /// Half the height of what is seen in parallel projection; nothing for perspective.
  std::optional<double> parallelScale;
};

/// Throws EditError for a viewpoint without a direction or with an unusable view-up or
/// scale.
VEMO_SCENEGRAPH_EXPORT void setView(SceneNode& scene, const Viewpoint& viewpoint);

/// From one colour at the top to another at the bottom. Colours are red, green, blue in
/// 0..1. Texts without a colour contrast with it.
VEMO_SCENEGRAPH_EXPORT void setBackground(SceneNode& scene, const vemo::Vector3& top,
                                          const vemo::Vector3& bottom);

}  // namespace lum
