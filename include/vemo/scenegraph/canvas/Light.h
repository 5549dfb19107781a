#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

/// A light from infinitely far away that moves with the camera.
class VEMO_SCENEGRAPH_EXPORT Light final : public Node {
  LUM_NODE(Light, Node)
  /// Red, green, blue in 0..1.
  LUM_VALUE(Vector3, Color, _color, {1.0, 1.0, 1.0})
  LUM_VALUE(double, Intensity, _intensity, 1.0)
  /// Azimuth (to the right of the viewer) and elevation (upwards), in degrees;
  /// (0, 0) shines from the viewer's position.
  LUM_VALUE(Vector2, Angles, _angles)

 public:
  void setAngles(double azimuth, double elevation) { setAngles({azimuth, elevation}); }
};

}  // namespace lum
