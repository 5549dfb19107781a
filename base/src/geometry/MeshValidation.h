#pragma once

#include "geometry/CellKinds.h"
#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkPolyData;

namespace vemo {

/// Whether VTK may be given these cells at all: every offset and index is where
/// it has to be. Otherwise `fault` says what is wrong.
VEMO_GEOMETRY_EXPORT bool hasSoundCells(vtkPolyData& geometry, std::string& fault);

/// The cells of some kinds that can be drawn: those with enough points to be
/// one, all of which are finite. Lines, strips and vertices lose only the
/// points that are not. Points that are not finite, and far ones that no cell
/// uses, take the place of one that is, so that the bounds are finite. Cell data follows its cells.
///
/// Gives the very poly data back when all of it can be drawn; else the copy
/// shares with it what it can. The cells are sound (hasSoundCells).
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> drawableCells(vtkPolyData& geometry,
                                                                unsigned kinds = ALL_CELLS);

/// A vertex for every finite point, without cell data.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> pointsAsVertices(vtkPolyData& geometry);

}  // namespace vemo
