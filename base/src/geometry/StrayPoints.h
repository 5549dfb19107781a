#pragma once

#include "geometry/Box.h"

#include <vector>

class vtkPolyData;

namespace vemo {

/// Points of a poly data that must not be drawn are marked by true; empty when
/// there are none.
using PointMarks = std::vector<bool>;

/// What one pass over the points of a poly data finds.
struct PointScan {
  PointMarks nonFinite;
  /// Around the finite points.
  Box bounds;
};

PointScan scanPoints(vtkPolyData& geometry);

/// Marks points that no cell uses and that lie far from those in use (some files
/// have such points for "no value"). Coordinates are drawn relative to the bounds
/// of all points, so that these would cost the cells their precision. All points
/// must be finite and within `bounds`.
PointMarks markFarPoints(vtkPolyData& geometry, const Box& bounds);

}  // namespace vemo
