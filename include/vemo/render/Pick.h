#pragma once

#include <vemo/base/Vector.h>

#include <vtkType.h>

namespace lum {
class Drawable;
class PolyDataNode;
}  // namespace lum

namespace vemo {

/// A place of a scene's geometry that was pointed at. The nodes are the scene's.
struct Pick {
  const lum::Drawable* drawable = nullptr;
  const lum::PolyDataNode* node = nullptr;
  /// The cell's number among all of the node: vertices first, then lines,
  /// polygons, strips, as in its cell data arrays. Below 0 for a point that is
  /// drawn though no cell names it.
  vtkIdType cell = -1;
  /// The number of that point of the cell that is nearest to the place.
  vtkIdType point = 0;
  /// The place itself, and that of the point: in the model, after transforms.
  Vector<3, double> position;
  Vector<3, double> pointPosition;
};

}  // namespace vemo
