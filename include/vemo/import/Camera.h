#pragma once

#include <vemo/base/Vector.h>

#include <cstdint>

namespace vemo {

/// A camera, and the position of its window. The defaults are those of
/// lum::CameraAttributes.
struct Camera {
  Vector<3, double> position{0.0, 0.0, 1.0};
  Vector<3, double> viewUp{0.0, 1.0, 0.0};
  Vector<3, double> focalPoint{};
  bool perspective = true;
  /// Half the height of what is seen in parallel projection, in model units.
  double parallelScale = 1.0;
  /// In pixels of the screen.
  std::int32_t windowX = 0;
  std::int32_t windowY = 0;
  std::int32_t windowWidth = 0;
  std::int32_t windowHeight = 0;
};

}  // namespace vemo
