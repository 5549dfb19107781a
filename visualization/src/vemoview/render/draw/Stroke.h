#pragma once

#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/resolve/Piece.h"
#include "vemoview/render/resolve/VisibleDrawables.h"

#include <memory>
#include <vector>

class vtkPlaneCollection;
class vtkRenderer;

namespace vemo {

/// Pieces that are drawn together: one, or small ones joined.
class Stroke {
 public:
  /// Of pieces that can be joined; at least one. Shows nothing yet.
  Stroke(std::vector<Piece> members, vtkRenderer& renderer, vtkPlaneCollection& planes);

  /// Shows the pieces of some drawables, and no others. Lines and points are
  /// wider by a factor.
  void show(const DrawableSet& shown, double pixelScale);

  void scalePixels(double factor);

  /// Calls visit(const Piece&) for each piece that is shown.
  template <class Visit>
  void forEachShown(Visit&& visit) const {
    for (std::size_t i = 0; i < _members.size(); ++i) {
      if (_isShown[i]) {
        visit(_members[i]);
      }
    }
  }

 private:
  void make(double pixelScale);

  std::vector<Piece> _members;
  std::vector<bool> _isShown;
  /// Which of them the props draw, whether or not the props are shown.
  std::vector<bool> _isDrawn;
  vtkSmartPointer<vtkRenderer> _renderer;
  vtkSmartPointer<vtkPlaneCollection> _planes;
  std::unique_ptr<PropGroup> _props;
};

}  // namespace vemo
