#pragma once

#include "geometry/Box.h"
#include <vemo/geometry/Export.h>

#include <vtkType.h>

#include <vector>

class vtkDataArray;
class vtkPolyData;

namespace vemo {

/// Points that are left out are marked by true; empty when there are none.
using PointMarks = std::vector<bool>;

/// The result of one pass over the points of an array with three components.
struct PointScan {
  /// Points with a coordinate that is not finite.
  PointMarks nonFinite;
  /// Around the others.
  Box bounds;
};

PointScan scanPoints(vtkDataArray& coordinates);

/// The bounds alone.
/// @param leftOut receives the number of points that are not finite
VEMO_GEOMETRY_EXPORT Box finiteBounds(vtkDataArray& coordinates, vtkIdType* leftOut = nullptr);

/// The box around all points, used by cells or not, all of them finite; VTK
/// keeps it with the points. The poly data has points.
VEMO_GEOMETRY_EXPORT Box boundsOf(vtkPolyData& geometry);

/// The box around the points that cells use, all of them finite.
VEMO_GEOMETRY_EXPORT Box boundsOfCells(vtkPolyData& geometry);

}  // namespace vemo
