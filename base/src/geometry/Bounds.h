#pragma once

#include "geometry/Box.h"
#include "geometry/Points.h"
#include <vemo/base/Vector.h>
#include <vemo/geometry/Export.h>

#include <vtkType.h>

class vtkDataArray;
class vtkPolyData;

namespace vemo {

/// The box around the points of an array with three components whose coordinates
/// are all finite. Calls the action with the index of each other point.
template <class Action>
Box finiteBounds(vtkDataArray& coordinates, const Action& onNonFinite) {
  Box result;
  PointReader(coordinates).visit([&](const auto& points) {
    // A local variable stays in registers.
    Box bounds;
    for (vtkIdType i = 0; i < points.size(); ++i) {
      const Vector3 point = points[i];
      if (isFinite(point)) {
        bounds.add(point);
      } else {
        onNonFinite(i);
      }
    }
    result = bounds;
  });
  return result;
}

/// The box around all points, used by cells or not, all of them finite; VTK
/// keeps it with the points. The poly data has points.
VEMO_GEOMETRY_EXPORT Box boundsOf(vtkPolyData& geometry);

/// The box around the points that cells use, all of them finite.
VEMO_GEOMETRY_EXPORT Box boundsOfCells(vtkPolyData& geometry);

}  // namespace vemo
