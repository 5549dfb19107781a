#pragma once

#include <cstdint>

namespace lum {
class Drawable;
}

namespace vemo {

/// How much geometry a drawable draws itself, all of its poly data together.
struct GeometryCounts {
  std::int64_t points = 0;
  std::int64_t verts = 0;
  std::int64_t lines = 0;
  std::int64_t polys = 0;
  std::int64_t strips = 0;

  std::int64_t cells() const { return verts + lines + polys + strips; }
};

GeometryCounts countGeometry(const lum::Drawable& drawable);

}  // namespace vemo
