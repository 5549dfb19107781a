#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkPolyData;

namespace vemo {

/// VTK lights a face with the normals of its points, inverted where the viewer sees its
/// back. Polygons and strips whose winding contradicts these normals would be black from
/// both sides, as would be those with normals of zero, at points whose faces cancel out, and with normals
/// that are not finite, or whose squares single precision does not have.
///
/// Reverses such polygons and strips, and replaces such normals by that of a face at the point.
/// Without normals at points, polygons are lit by those of cells: inverts one that contradicts the
/// winding, as VTK's does for spiky polygons, and replaces one that cannot light. Replaces the poly data by a
/// copy then, which shares the rest. Cells must be valid (CellValidator), and all points finite.
VEMO_GEOMETRY_EXPORT void lightBothSides(vtkSmartPointer<vtkPolyData>& faces);

}  // namespace vemo
