#pragma once

#include <vemo/base/Vector.h>

#include <vector>

namespace vemo {

/// A light at infinity that moves with the camera.
struct DirectionalLight {
  /// Red, green, blue.
  Vector3 color;
  double intensity = 1.0;
  /// To the right of the viewer, and upwards, in degrees.
  double azimuth = 0.0;
  double elevation = 0.0;
};

/// Without any, a white light of intensity 1 shines from the camera's position: a
/// face seen from the front then has its own colour.
using CanvasLights = std::vector<DirectionalLight>;

}  // namespace vemo
