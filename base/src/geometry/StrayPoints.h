#pragma once

#include <vtkBoundingBox.h>

#include <vector>

class vtkPolyData;

namespace vemo {

/// Points of a poly data that must not be drawn are marked by true; empty when
/// there are none.
using PointMarks = std::vector<bool>;

/// The points of a poly data, looked through once.
struct PointScan {
  PointMarks nonFinite;
  /// Of the finite ones.
  vtkBoundingBox bounds;
};

PointScan scanPoints(vtkPolyData& geometry);

/// Marks points that no cell uses and that lie far from those in use (files
/// have them, as "no value"): the coordinates are drawn relative to all points,
/// and the cells would lose their digits. All points are finite, within the
/// bounds.
PointMarks markFarPoints(vtkPolyData& geometry, const vtkBoundingBox& bounds);

}  // namespace vemo
