#pragma once

namespace vemo {

/// Where an element of the scene description is. Several may start on one line,
/// and items may share a path: only the number tells them apart.
struct ElementPlace {
  /// On which the element starts; 0 when unknown.
  int line = 0;
  /// From 1 in document order; 0 when unknown.
  int number = 0;
};

}  // namespace vemo
