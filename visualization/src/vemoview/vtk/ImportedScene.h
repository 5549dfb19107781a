#pragma once

#include "geometry/Box.h"
#include "vemoview/render/vtk/CanvasCameras.h"
#include "vemoview/vtk/ImportedItems.h"
#include "vemoview/vtk/RendererSettings.h"
#include "vemoview/vtk/SurroundingLayers.h"
#include <vemo/base/Progress.h>
#include <vemo/resolve/ResolvedScene.h>
#include <vemo/resolve/SceneResolver.h>

#include <memory>
#include <vector>

class vtkLight;

namespace vemo {

/// What a scene adds to a renderer and its window: it is removed from them at the end. The
/// renderer, which may own it, draws the model.
class ImportedScene {
 public:
  /// Adds the props, but hidden: the renderer draws the same as before. Throws SceneTooLarge and
  /// Cancelled.
  ImportedScene(const lum::SceneNode& scene, vtkRenderer& renderer, const ProgressReport& progress);
  ~ImportedScene();
  ImportedScene(const ImportedScene&) = delete;
  ImportedScene& operator=(const ImportedScene&) = delete;

  // In this order:

  /// Shows the visible items, in all layers.
  void show();
  /// Points the renderer's camera, unless that of the scene is not wanted.
  void setCamera(bool isWanted);
  void addLights();
  void setProperties();

  ImportedItems& getItems() { return _items; }

  /// As of an item that was hidden at first, which the camera may cut off.
  void setVisibility(ImportedItem& item, bool isVisible);

 private:
  struct Canvas {
    /// Without meshes and decorations, once they are items.
    ResolvedCanvas content;
    /// Null for the model's.
    vtkSmartPointer<vtkRenderer> ownRenderer;
    Box placesOfTexts;
    bool isEmpty;
  };
  void addCanvas(ResolvedCanvas canvas, const CanvasUpdate& hidden);
  void addItems(const lum::SceneNode& scene, const std::vector<CanvasUpdate>& hidden,
                const ProgressReport& progress);
  const Canvas* findModel() const;
  bool hasPlainBackground() const;
  void addLayers();
  vtkSmartPointer<vtkRenderer> makeBackgroundLayer() const;
  void extendClipping();
  void updateClipping();
  bool hasTranslucency();

  vtkWeakPointer<vtkRenderer> _renderer;
  /// Null until the scene is shown.
  std::shared_ptr<RendererSettings> _formerSettings;
  vtkSmartPointer<vtkCamera> _camera;
  Background _background;
  std::vector<Canvas> _canvases;
  ImportedItems _items;
  std::vector<vtkSmartPointer<vtkLight>> _lights;
  std::unique_ptr<SurroundingLayers> _layers;
  unsigned long _clippingObserver = 0;
  unsigned long _drawingObserver = 0;
  bool _isClippingOutdated = false;
};

}  // namespace vemo
