#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <vector>

class vtkFloatArray;
class vtkPolyData;

/// Normals of the polygons and strips of a poly data, as vtkPolyDataNormals
/// computes them without splitting and orientation, but without its copies: the
/// poly data keeps its cells.
///
/// The poly data must have points, and valid cells: every index is that of a point,
/// every polygon and strip has at least three points (see Connectivity.h).
namespace vemo {

/// The name of the array that holds the normals of a poly data's points, or of
/// its cells.
inline constexpr const char* NORMALS = "Normals";

/// One unit vector of three floats for each point, named NORMALS: the
/// direction of the sum of the unit normals of the polygons and of the strips'
/// triangles around the point. It is zero where that sum is: at points of no
/// polygon or strip, where none of them has a normal, or where their normals cancel out.
/// Where neighbours are not consistently wound, some are reversed for the sum, as the
/// filter does; the poly data keeps them as they are.
///
/// A polygon or triangle with a coordinate that is not finite does not contribute, so
/// that its neighbours keep a normal.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> pointNormals(vtkPolyData& mesh);

/// One unit vector of three floats for each cell, named NORMALS, in VTK's
/// order of cells (verts, lines, polys, strips). A strip has the mean normal of
/// its triangles, weighted by their areas; where vtkPolyDataNormals would break
/// it into triangles, it stays one cell here. A polygon or strip without area
/// gets a zero vector, as does a polygon with a coordinate that is not finite; a
/// strip's triangle with such a coordinate is left out of the mean. Verts and
/// lines have no normal and get (1, 0, 0).
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> cellNormals(vtkPolyData& mesh);

// The same with normals of polygons that are those of their areas. The filter sums the products of a
// polygon's corners instead, in which sharp reflex corners may outweigh the others: some flat spiky
// polygons have the opposite normal there, or one without a meaning.

/// Point normals of both kinds, in less time than one after the other.
struct PointNormals {
  vtkSmartPointer<vtkFloatArray> byCorners;
  vtkSmartPointer<vtkFloatArray> byArea;
};
VEMO_GEOMETRY_EXPORT PointNormals bothPointNormals(vtkPolyData& mesh);

VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> cellNormalsByArea(vtkPolyData& mesh);

/// One unit vector of three floats for each polygon, then for each triangle of the strips, by their areas.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkFloatArray> faceNormalsByArea(vtkPolyData& mesh);

/// The numbers of the polygons whose normals by corners and by area are far from each other.
VEMO_GEOMETRY_EXPORT std::vector<vtkIdType> findMisjudgedPolygons(vtkPolyData& mesh);

}  // namespace vemo
