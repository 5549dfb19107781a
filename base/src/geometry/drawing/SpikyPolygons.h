#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkPolyData;

namespace vemo {

/// A conversion writes normals as VTK's filter computes them, which misjudges some flat spiky polygons
/// (Normals.h). Around these, replaces such normals of points, or else of cells, by those of areas; any
/// other normals stay. Replaces the poly data by a copy then, which shares the rest. Cells must be valid
/// (CellValidator), and all points finite.
VEMO_GEOMETRY_EXPORT void correctSpikyPolygons(vtkSmartPointer<vtkPolyData>& faces);

}  // namespace vemo
