#pragma once

#include <vemo/base/Vector.h>

#include <vector>

namespace vemo {

/// A light at infinity that moves with the camera.
struct DirectionalLight {
  /// Red, green, blue.
  Vector<3, double> color;
  double intensity = 1.0;
  /// To the right of the viewer, and upwards, in degrees.
  double azimuth = 0.0;
  double elevation = 0.0;
};

struct CanvasLights {
  std::vector<DirectionalLight> lights;
  /// The colour of a further light at the camera's position, with intensity 1.
  Vector<3, double> headlight{1.0, 1.0, 1.0};
};

}  // namespace vemo
