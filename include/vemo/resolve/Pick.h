#pragma once

#include <vemo/base/Vector.h>

#include <vtkType.h>

namespace lum {
class Drawable;
class PolyDataNode;
}  // namespace lum

namespace vemo {

/// A position on a scene's geometry. The nodes are the scene's.
struct Pick {
  const lum::Drawable* drawable = nullptr;
  const lum::PolyDataNode* node = nullptr;
  /// The cell's index among all of the node: vertices first, then lines,
  /// polygons, strips, as in its cell data arrays. Below 0 for a point that is
  /// drawn although no cell uses it.
  vtkIdType cell = -1;
  /// The index of the cell's point nearest to the position.
  vtkIdType point = 0;
  /// The position itself, and that of the point: in the model, after transforms.
  Vector3 position;
  Vector3 pointPosition;
};

}  // namespace vemo
