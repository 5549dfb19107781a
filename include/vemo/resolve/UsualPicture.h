#pragma once

namespace vemo {

/// The size of a picture, in pixels, unless another is stated. What can be seen depends on
/// the size: findings apply to this one.
inline constexpr int USUAL_WIDTH = 1024;
inline constexpr int USUAL_HEIGHT = 768;
inline constexpr double USUAL_ASPECT = static_cast<double>(USUAL_WIDTH) / USUAL_HEIGHT;

/// Of cameras in perspective, from top to bottom, in degrees.
inline constexpr double USUAL_VIEW_ANGLE = 30.0;

}  // namespace vemo
