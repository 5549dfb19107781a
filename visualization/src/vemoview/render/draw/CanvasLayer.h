#pragma once

#include "geometry/Box.h"
#include "vemoview/render/decorations/Decorations.h"
#include "vemoview/render/draw/Batch.h"
#include "vemoview/render/draw/PropBudget.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/CanvasCameras.h"
#include <vemo/resolve/Pick.h>
#include <vemo/resolve/ResolvedScene.h>

#include <optional>
#include <vector>

namespace vemo {

/// Draws a canvas with its own renderer.
class CanvasLayer {
 public:
  explicit CanvasLayer(ResolvedCanvas canvas);
  CanvasLayer(const CanvasLayer&) = delete;
  CanvasLayer& operator=(const CanvasLayer&) = delete;

  /// To be called once, when the cameras of all canvases are known. Throws SceneTooLarge when the
  /// budget, of all canvases, does not suffice.
  void fill(const CanvasCameras& cameras, PropBudget& budget);

  vtkRenderer& getRenderer() const { return *_resources.renderer; }
  bool isModel() const { return _canvas.role == ResolvedCanvas::Role::MODEL; }

  /// Meshes as they will be drawn.
  struct PlannedBatches {
    PropBudget::Batches batches;
    /// Of which the props exist as long as they show the same.
    std::vector<bool> keepProps;
  };
  /// Throws SceneTooLarge when the budget does not suffice.
  PlannedBatches plan(std::vector<MeshInstance> meshes, PropBudget& budget) const;

  /// Shows exactly the currently visible content of the canvas.
  /// @param added the meshes of the update
  void update(const CanvasUpdate& update, PlannedBatches added, const CanvasCameras& cameras);

  /// Makes lines and points wider by a factor.
  void scalePixels(double factor);

  /// The position shown at a pixel of the window.
  std::optional<Pick> pick(const Vector<2, double>& pixel) const;

  /// Points the camera as the canvas says.
  void resetView();

  /// Points the camera elsewhere, until the view is reset.
  void look(const CanvasCamera& camera);

  /// Moves the camera so that what is visible fills the view from its direction.
  void fit();

  /// Moves the camera so that everything is seen.
  void frameAll();

  /// Moves the camera so that a box fills the view.
  void fit(const Box& box);

  /// Around the visible parts of some drawables.
  Box boundsOf(const DrawableSet& drawables) const;

 private:
  void addBatches(PlannedBatches planned);
  void addDecorations(const std::vector<Decoration>& decorations, const CanvasCameras& cameras);

  /// Its meshes and decorations move to the batches and props.
  ResolvedCanvas _canvas;
  CanvasResources _resources;
  std::vector<Batch> _batches;
  Decorations _decorations;
  // Texts in the model, which have no bounds in VTK.
  Box _placesOfTexts;
  double _pixelScale = 1.0;
};

}  // namespace vemo
