#pragma once

#include "geometry/PolyDataValidator.h"

#include <string>

namespace lum {

class Node;

}

namespace lum::io {

/// Refuses poly data that does not fit together when nodes are written or read. An
/// array that changes in between must say so (`Modified`).
class PolyDataCheck {
 public:
  /// What is wrong with a node's poly data. Empty for valid poly data, or for a
  /// node that is not a PolyDataNode.
  std::string findFault(const Node& node);

 private:
  vemo::PolyDataValidator _validator;
};

}  // namespace lum::io
