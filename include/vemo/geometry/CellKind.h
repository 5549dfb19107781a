#pragma once

#include <vtkPolyData.h>
#include <vtkType.h>

#include <array>
#include <cstddef>

class vtkCellArray;

namespace vemo {

/// The four kinds of cells that a poly data has, in VTK's order: a poly data
/// numbers its cells, and with them the rows of its cell data, in this order.
enum class CellKind { VERTS, LINES, POLYS, STRIPS };

/// What sets one kind of cells apart from the others.
struct CellKindTraits {
  CellKind kind;
  /// As in scene files, databases and messages.
  const char* name;
  /// As in texts for users.
  const char* title;
  /// Fewer points do not make a cell.
  vtkIdType leastPoints;
  /// Whether the rest is still a cell of this kind when points are removed.
  bool isDivisible;
  /// Never null; a kind that the poly data does not have is an empty array.
  vtkCellArray* (*get)(vtkPolyData&);
  /// Null removes the cells.
  void (*set)(vtkPolyData&, vtkCellArray*);
};

/// Indexed by kind.
inline constexpr std::array<CellKindTraits, 4> CELL_KINDS = {{
    {CellKind::VERTS, "verts", "Vertices", 1, true, [](vtkPolyData& data) { return data.GetVerts(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetVerts(cells); }},
    {CellKind::LINES, "lines", "Lines", 2, true, [](vtkPolyData& data) { return data.GetLines(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetLines(cells); }},
    {CellKind::POLYS, "polys", "Polygons", 3, false, [](vtkPolyData& data) { return data.GetPolys(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetPolys(cells); }},
    {CellKind::STRIPS, "strips", "Strips", 3, true, [](vtkPolyData& data) { return data.GetStrips(); },
     [](vtkPolyData& data, vtkCellArray* cells) { data.SetStrips(cells); }},
}};

/// The order in which scenes, databases and listings have the kinds; VTK swaps
/// the last two.
inline constexpr std::array FILE_CELL_KINDS = {CellKind::VERTS, CellKind::LINES, CellKind::STRIPS,
                                               CellKind::POLYS};

/// The index of a kind in arrays with one element for each kind.
constexpr std::size_t indexOf(CellKind kind) {
  return static_cast<std::size_t>(kind);
}

constexpr const CellKindTraits& traitsOf(CellKind kind) {
  return CELL_KINDS[indexOf(kind)];
}

/// A set of kinds: CellKind::POLYS | CellKind::STRIPS.
class CellKinds {
 public:
  constexpr CellKinds(CellKind kind) : _bits(1U << indexOf(kind)) {}

  constexpr bool contains(CellKind kind) const { return (_bits & CellKinds(kind)._bits) != 0; }

  friend constexpr CellKinds operator|(CellKinds kinds, CellKind added) {
    kinds._bits |= CellKinds(added)._bits;
    return kinds;
  }

 private:
  unsigned _bits;
};

constexpr CellKinds operator|(CellKind a, CellKind b) {
  return CellKinds(a) | b;
}

inline constexpr CellKinds ALL_CELLS = CellKind::VERTS | CellKind::LINES | CellKind::POLYS | CellKind::STRIPS;

}  // namespace vemo
