#pragma once

#include <vemo/scenegraph/Field.h>

#include <cstdint>
#include <string>
#include <unordered_map>

namespace lum {

class Node;

}

namespace lum::io {

/// Whether the arrays of poly data fit each other, so that VTK, which trusts
/// its input, may be given them. The arrays must live, unchanged, as long as
/// the check.
class PolyDataCheck {
 public:
  /// What is wrong with a node's poly data: points that are no points; cells
  /// with too few points, or with points that there are not; data arrays that
  /// have not one tuple for each point or cell, or share a name. Empty when
  /// nothing is, or the node is no PolyDataNode.
  std::string findFault(const Node& node);

 private:
  /// Of an array of a cell array's offsets.
  struct Offsets {
    bool isSound;
    std::int64_t last;
    std::int64_t shortestCell;
  };
  /// Of a connectivity array; both 0 when it is empty.
  struct Range {
    std::int64_t least;
    std::int64_t greatest;
  };

  std::string findCellFault(vtkCellArray* cells, std::int64_t leastPoints, std::int64_t pointCount);
  Offsets summarizeOffsets(vtkDataArray& offsets);
  Range findRange(vtkDataArray& connectivity);

  // Large arrays are gone through once, however many nodes use them: a small
  // file must not make us work without end.
  std::unordered_map<vtkDataArray*, Offsets> _offsets;
  std::unordered_map<vtkDataArray*, Range> _ranges;
};

}  // namespace lum::io
