#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkFloatArray;
class vtkPolyData;

/// Normals of the polygons and strips of a poly data, as vtkPolyDataNormals
/// computes them without splitting and orientation, and without its copies: the
/// poly data keeps its cells.
///
/// The poly data has points, and its cells are valid: every index names a point,
/// every polygon and strip has at least three points (see Connectivity.h).
namespace vemo {

/// The name of the array that holds the normals of a poly data's points, or of
/// its cells.
inline constexpr const char* NORMALS = "Normals";

/// One unit vector of three floats for each point, named NORMALS: the
/// direction of the sum of the unit normals of the polygons and of the strips'
/// triangles around the point. It is zero where that sum is: at points of no
/// polygon or strip, or where none of them has a normal. Where neighbours are not
/// wound alike, some are reversed for the sum, as the filter does to be
/// consistent; the poly data keeps them as they are.
///
/// A polygon or triangle with a coordinate that is not finite adds nothing, so
/// that its neighbours keep a normal.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> pointNormals(vtkPolyData& mesh);

/// One unit vector of three floats for each cell, named NORMALS, in VTK's
/// order of cells (verts, lines, polys, strips). A strip has the mean normal of
/// its triangles, weighted by their areas; where vtkPolyDataNormals would break
/// it into triangles, it stays one cell here. A polygon or strip without area is
/// given a zero vector, so is a polygon with a coordinate that is not finite; a
/// strip's triangle with such a coordinate is left out of the mean. Verts and
/// lines have no normal and are given (1, 0, 0).
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> cellNormals(vtkPolyData& mesh);

}  // namespace vemo
