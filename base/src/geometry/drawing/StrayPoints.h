#pragma once

#include "geometry/Bounds.h"

class vtkPolyData;

namespace vemo {

/// Finds no points in a poly data without points.
PointScan scanPoints(vtkPolyData& geometry);

/// Marks points that no cell uses and that lie far from those in use (some files
/// have such points for "no value"). Coordinates are drawn relative to the bounds
/// of all points, so that these would cost the cells their precision. All points
/// must be finite and within `bounds`.
PointMarks markFarPoints(vtkPolyData& geometry, const Box& bounds);

}  // namespace vemo
