#pragma once

#include <vemo/base/Vector.h>

#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <array>
#include <memory>
#include <vector>

class vtkCuller;
class vtkLight;
class vtkOpenGLRenderer;
class vtkRenderer;
class vtkRenderWindow;

namespace vemo {

class ImportedScene;

/// Left, bottom, right and top, as fractions of a window, or of a part of it.
using Viewport = std::array<double, 4>;

/// A part of a part of a window.
Viewport partOf(const Viewport& whole, const Viewport& part);

/// The settings of a renderer, and of its window, before scenes were imported into it: the last
/// of these scenes restores them.
class RendererSettings {
 public:
  /// Those that the first of the scenes has found.
  static std::shared_ptr<RendererSettings> of(vtkRenderer& renderer);
  explicit RendererSettings(vtkRenderer& renderer);
  ~RendererSettings();
  RendererSettings(const RendererSettings&) = delete;
  RendererSettings& operator=(const RendererSettings&) = delete;

  /// The light that VTK creates for renderers without any would shine besides those of the scene.
  void turnOffAutomaticLight();

  /// Sorts translucent layers as our own renderer does. The window is current, and also when
  /// the settings are restored.
  void peelDepths();

  /// The renderer's part of the window, which is that of each scene: as the program has set it, and not as
  /// the part of a scene's model.
  const Viewport& findWhole();

  /// Gives the renderer the part that a scene's model has, until the scene's are removed or those of
  /// another follow.
  void addModelPart(const ImportedScene& scene, const Viewport& part);
  void removeModelParts(const ImportedScene& scene);

 private:
  struct ModelPart {
    const ImportedScene* scene;
    Viewport part;
  };

  bool isPartOfModel() const;
  void followProgram();
  void showPart();

  vtkWeakPointer<vtkRenderer> _renderer;
  vtkWeakPointer<vtkRenderWindow> _window;
  Viewport _whole{};
  /// The last one is that of the renderer.
  std::vector<ModelPart> _modelParts;
  bool _createsLight;
  /// Null if VTK had created none.
  vtkSmartPointer<vtkLight> _createdLight;
  Vector3 _background;
  bool _hasGradient;
  bool _hasTexture;
  double _nearTolerance;
  bool _peelsDepths;
  int _peels;
  double _occlusionRatio;
  /// The renderer if it sorts translucent layers as ours does.
  vtkWeakPointer<vtkOpenGLRenderer> _peeling;
  std::vector<vtkSmartPointer<vtkCuller>> _cullers;
  int _alphaBitPlanes = 0;
  int _samples = 0;
};

}  // namespace vemo
