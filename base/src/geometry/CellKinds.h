#pragma once

#include <vtkPolyData.h>

#include <array>

class vtkCellArray;

namespace vemo {

/// Sets of kinds of cells are sums of these.
enum CellKinds : unsigned {
  VERTEX_CELLS = 1,
  LINE_CELLS = 2,
  POLYGON_CELLS = 4,
  STRIP_CELLS = 8,
  ALL_CELLS = 15,
};

/// One of the four cell arrays of a poly data.
struct CellKind {
  CellKinds kind;
  const char* name;
  /// How many points make a cell.
  vtkIdType minimum;
  /// Whether what is left is still such a cell when points are taken out.
  bool isDivisible;
  vtkCellArray* (*get)(vtkPolyData&);
  void (*set)(vtkPolyData&, vtkCellArray*);
};

/// In the order in which a poly data numbers its cells.
inline constexpr std::array<CellKind, 4> CELL_KINDS = {{
    {VERTEX_CELLS, "vertex", 1, true, [](vtkPolyData& data) { return data.GetVerts(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetVerts(cells); }},
    {LINE_CELLS, "line", 2, true, [](vtkPolyData& data) { return data.GetLines(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetLines(cells); }},
    {POLYGON_CELLS, "polygon", 3, false, [](vtkPolyData& data) { return data.GetPolys(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetPolys(cells); }},
    {STRIP_CELLS, "strip", 3, true, [](vtkPolyData& data) { return data.GetStrips(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetStrips(cells); }},
}};

}  // namespace vemo
