#pragma once

#include <vemo/resolve/Background.h>
#include <vemo/resolve/CanvasCamera.h>
#include <vemo/resolve/CanvasLights.h>
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/MeshInstance.h>

#include <vector>

namespace vemo {

/// What is seen in a part of the window.
struct ResolvedCanvas {
  enum class Role { BACKGROUND, MODEL, FOREGROUND, ORIENTATION };

  Role role = Role::MODEL;
  /// The corners of its part of the window, as fractions of the window's width
  /// and height: not empty.
  Vector<2, double> lowerLeft{0.0, 0.0};
  Vector<2, double> upperRight{1.0, 1.0};
  /// Whether the mouse turns its camera.
  bool isInteractive = false;
  CanvasCamera camera;
  CanvasLights lights;
  std::vector<ClipPlane> clipPlanes;
  /// In drawing order.
  std::vector<MeshInstance> meshes;
  std::vector<Decoration> decorations;
};

/// What is seen of a scene, as a plain list. It shares arrays with the scene,
/// and refers to its drawables.
struct ResolvedScene {
  Background background;
  /// From back to front.
  std::vector<ResolvedCanvas> canvases;
};

}  // namespace vemo
