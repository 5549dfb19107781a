#pragma once

#include "geometry/Box.h"

#include <vtkActor.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <optional>

namespace vemo {

/// Shows a user the selected part of a model: a box and a mark, in front of
/// everything else.
class SelectionHighlight {
 public:
  /// Seen through the camera of a renderer, in its part of the window.
  explicit SelectionHighlight(vtkRenderer& model);

  vtkRenderer& getRenderer() const { return *_renderer; }

  /// Nothing for an empty box.
  void outline(const Box& box);
  void scalePixels(double factor);
  void mark(const std::optional<Vector3>& point);

 private:
  vtkNew<vtkRenderer> _renderer;
  vtkNew<vtkActor> _box;
  vtkNew<vtkActor> _mark;
};

}  // namespace vemo
