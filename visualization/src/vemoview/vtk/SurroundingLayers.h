#pragma once

#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <vector>

class vtkRenderer;
class vtkRenderWindow;

namespace vemo {

/// Renderers in layers of a window directly below and above that of another renderer. What
/// is above moves up. At the end they are removed, and what is above them moves down.
class SurroundingLayers {
 public:
  using Renderers = std::vector<vtkSmartPointer<vtkRenderer>>;

  /// From back to front. The renderer in the middle is in a window.
  SurroundingLayers(vtkRenderer& middle, const Renderers& below, const Renderers& above);
  ~SurroundingLayers();
  SurroundingLayers(const SurroundingLayers&) = delete;
  SurroundingLayers& operator=(const SurroundingLayers&) = delete;

 private:
  void moveUp(int leastLayer, int distance);
  void remove(vtkRenderer& renderer);

  vtkWeakPointer<vtkRenderWindow> _window;
  Renderers _renderers;
};

}  // namespace vemo
