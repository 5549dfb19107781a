#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <vector>

class vtkPolyData;

namespace vemo {

/// VTK draws polygons as fans of triangles around their first point. Lets concave
/// ones begin at a point around which the triangles do not fold over each other,
/// if there is one among the first 100, as in every simple quadrilateral; replaces
/// the poly data by a copy then, which shares the rest. Cells are valid
/// (CellValidator), and all points are finite.
///
/// Returns the numbers of the polygons for which no such point was found.
VEMO_GEOMETRY_EXPORT std::vector<vtkIdType> unfoldFans(vtkSmartPointer<vtkPolyData>& geometry);

}  // namespace vemo
