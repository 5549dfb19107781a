#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <vector>

class vtkPolyData;

namespace vemo {

struct PolygonFilling {
  /// With triangles in place of polygons; null if there are none. Of the data of cells it has what is
  /// drawn: normals, and the first component of the array that colours.
  vtkSmartPointer<vtkPolyData> geometry;
  /// How many of the polygons have another shape.
  vtkIdType failures = 0;
};

/// Replaces polygons by triangles that cover what these surround. Polygons that cross themselves, and
/// some that are bent, become fans around their first point, in which each triangle can be lit by
/// itself. Cells are valid (CellValidator), and all points finite.
/// @param polygons their numbers, in order
/// @param colors the name of the array of cells that colours them; null if none does
VEMO_GEOMETRY_EXPORT PolygonFilling fillPolygons(vtkPolyData& geometry,
                                                 const std::vector<vtkIdType>& polygons, const char* colors);

}  // namespace vemo
