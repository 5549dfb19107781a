#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkPolyData;

namespace vemo {

/// The angle at which edges are drawn as part of a contour.
inline constexpr double CONTOUR_BEND_DEGREES = 30.0;

/// The lines of a drawing of faces: their borders, and the edges at which two
/// faces meet at the given angle or a sharper one. Points at the same place count
/// as one: faces that meet there have no border between them. An edge of more than
/// two faces is neither.
///
/// What vtkCleanPolyData and vtkFeatureEdges find, but in time that grows with the
/// edges even if all of them share a point or an edge, and with the true normals of
/// spiky polygons. Faces are polygons and the
/// triangles of strips. Their cells are valid (CellValidator) and have three points or
/// more, of which some may be the same; all points are finite. There are fewer than 2^31
/// points, and corners of faces.
///
/// Shares the points of the faces if lines need all of them.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> contourEdges(vtkPolyData& faces, double leastBendDegrees);

/// The edges of polygons and of the triangles of strips, as a closed line each. Shares the points.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> faceEdges(vtkPolyData& faces);

}  // namespace vemo
