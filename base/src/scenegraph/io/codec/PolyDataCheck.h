#pragma once

#include "geometry/CellValidator.h"

#include <string>

namespace lum {

class Node;

}

namespace lum::io {

/// Whether the arrays of poly data fit each other, so that VTK, which trusts
/// its input, may be given them. The arrays must outlive the check, unchanged.
class PolyDataCheck {
 public:
  /// What is wrong with a node's poly data: points that do not have three
  /// coordinates; cells with too few points, or with indices outside the
  /// points; data arrays that do not have one tuple for each point or cell, or
  /// share a name. Empty for valid poly data, or for a node that is not a
  /// PolyDataNode.
  std::string findFault(const Node& node);

 private:
  vemo::CellValidator _cells;
};

}  // namespace lum::io
