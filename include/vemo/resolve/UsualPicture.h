#pragma once

namespace vemo {

/// The size of a picture, in pixels, unless another is stated. What can be seen depends on
/// the size: findings apply to this one.
inline constexpr int USUAL_WIDTH = 1024;
inline constexpr int USUAL_HEIGHT = 768;

}  // namespace vemo
