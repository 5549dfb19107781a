#pragma once

#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <vector>

class vtkRenderer;
class vtkRenderWindow;

namespace vemo {

/// Renderers in layers of a window directly below and above that of another renderer. What
/// is above moves up. At the end they are removed, and what moved moves back.
class SurroundingLayers {
 public:
  using Renderers = std::vector<vtkSmartPointer<vtkRenderer>>;

  /// From back to front. The renderer in the middle is in a window.
  SurroundingLayers(vtkRenderer& middle, const Renderers& below, const Renderers& above);
  ~SurroundingLayers();
  SurroundingLayers(const SurroundingLayers&) = delete;
  SurroundingLayers& operator=(const SurroundingLayers&) = delete;

 private:
  void moveOthers(int leastLayer, int distance);

  vtkWeakPointer<vtkRenderer> _middle;
  vtkWeakPointer<vtkRenderWindow> _window;
  Renderers _renderers;
  int _layer;
};

}  // namespace vemo
