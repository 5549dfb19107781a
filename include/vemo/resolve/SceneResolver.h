#pragma once

#include <vemo/resolve/Export.h>
#include <vemo/resolve/ResolvedScene.h>
#include <vemo/resolve/TextMeasure.h>
#include <vemo/resolve/UsualPicture.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace lum {
class Drawable;
class SceneNode;
}  // namespace lum

namespace vemo {

using DrawableSet = std::unordered_set<const lum::Drawable*>;

/// A change of what is visible in a canvas.
struct CanvasUpdate {
  /// Everything that is visible now.
  DrawableSet visible;
  /// What was not resolved before, in drawing order.
  std::vector<MeshInstance> meshes;
  std::vector<Decoration> decorations;
};

/// Which arrays of a scene the geometry of its meshes has: those that are drawn, or all that
/// fit.
enum class MeshArrays { DRAWN, ALL };

/// How the model is looked at, other than its camera says.
struct ViewChange {
  /// In perspective, from top to bottom, in degrees.
  std::optional<double> viewAngle = std::nullopt;
  /// Whether the visible part of the model is to fill the picture, seen from the direction
  /// of the camera.
  bool fitsModel = false;
  /// The same for the visible geometry of some drawables.
  std::vector<const lum::Drawable*> fitted = {};
  /// How many times as many pixels points have as stated, if their size is in pixels.
  double pixelScale = 1.0;
  /// In pixels, of which points in model units have the more the higher the picture is.
  double pictureHeight = USUAL_HEIGHT;
};

struct ResolveOptions {
  MeshArrays arrays = MeshArrays::DRAWN;
  /// What it does not show is a finding.
  ViewChange view = {};
  /// Without it, the sizes of texts are estimated, so that no finding tells of those that are
  /// cut off.
  TextMeasure measureText = {};
};

/// Resolves a scene, and later only the parts that become visible. The scene is
/// not changed; it must outlive the resolver.
class VEMO_RESOLVE_EXPORT SceneResolver {
 public:
  explicit SceneResolver(const lum::SceneNode& scene, ResolveOptions options = {});
  ~SceneResolver();
  SceneResolver(const SceneResolver&) = delete;
  SceneResolver& operator=(const SceneResolver&) = delete;

  /// Everything that is visible. Must be called once only. Throws
  /// SceneTooLarge.
  ResolvedScene resolve();

  /// What the visibility of drawables (BaseAttributes::getVisibility) has
  /// changed in a canvas, by its index in the resolved scene. Other changes of
  /// the scene are ignored. If it throws SceneTooLarge, the resolver is
  /// unchanged.
  CanvasUpdate update(std::size_t canvas);

  /// What a canvas would show besides if nothing in it were hidden. It does not become
  /// visible for update(), but is not listed there again. As update() if it throws.
  CanvasUpdate resolveHidden(std::size_t canvas);

  /// Takes back the last update() or resolveHidden() of a canvas, once: what it listed is listed again
  /// when it is asked for again.
  void takeBack(std::size_t canvas);

 private:
  struct State;
  std::unique_ptr<State> _state;
};

/// What is visible in a scene. Throws SceneTooLarge.
VEMO_RESOLVE_EXPORT ResolvedScene resolveScene(const lum::SceneNode& scene);

/// The visible drawables among a drawable and those that it owns.
VEMO_RESOLVE_EXPORT DrawableSet visibleParts(const lum::Drawable& drawable);

}  // namespace vemo
