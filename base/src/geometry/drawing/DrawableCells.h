#pragma once

#include <vemo/geometry/CellKind.h>
#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkIdList;
class vtkPolyData;

namespace vemo {

/// The cells of some kinds that can be drawn: those with enough points, all of
/// them finite. Lines, strips and vertices lose only the points that are not
/// finite. Points that are not finite, and far ones that no cell uses, are moved
/// to one that is, so that the bounds are finite and tight. Cell data follow
/// their cells.
///
/// Returns the poly data itself when all of it can be drawn; otherwise a copy
/// that shares with it what it can. The cells are valid (CellValidator), though
/// they may have too few points.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> drawableCells(vtkPolyData& geometry,
                                                                CellKinds kinds = ALL_CELLS);

/// A vertex for every finite point, without cell data.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> pointsAsVertices(vtkPolyData& geometry);

/// A copy with the points that cells use, and no others. It shares the cells' data.
/// @param numbers gets the numbers that the points have had
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> withUsedPoints(vtkPolyData& geometry, vtkIdList& numbers);

}  // namespace vemo
