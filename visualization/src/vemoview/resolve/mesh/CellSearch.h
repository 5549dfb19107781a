#pragma once

#include "vemoview/resolve/canvas/ShownShapes.h"
#include <vemo/resolve/MeshInstance.h>

#include <span>

namespace vemo {

/// Whether a mesh is seen by its faces alone.
bool isOfFaces(const Appearance& appearance);

/// Whether a view could show anything of it: faces with an area, edges, a contour, lines or points.
bool hasShapes(const MeshInstance& mesh);

/// Searches meshes for cells that are shown in a picture of the usual size.
class CellSearch {
 public:
  /// @param canvas must outlive it, as must the planes
  CellSearch(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes)
      : _canvas(canvas), _clipPlanes(clipPlanes) {}

  /// Whether there is one in a mesh. After very many cells that are not shown it stops
  /// searching, and returns true for all further meshes.
  bool finds(const MeshInstance& mesh);

  /// The same, but false for a mesh that is not searched to its end.
  bool findsForCertain(const MeshInstance& mesh) { return finds(mesh) && !isExhausted(); }

 private:
  bool isExhausted() const;

  const UsualCanvas& _canvas;
  std::span<const ClipPlane> _clipPlanes;
  long _stepCount = 0;
};

}  // namespace vemo
