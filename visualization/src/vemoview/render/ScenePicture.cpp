#include "vemoview/render/context/CurrentContextKeeper.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include "vemoview/render/context/VtkMessages.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/render/SceneRenderer.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace vemo {

namespace {

struct PictureSize {
  int width;
  int height;
};

/// The largest frame buffer, in samples of all its pixels.
constexpr long MAX_SAMPLES = 128L << 20;

long pixelsOf(const PictureSize& size) {
  return static_cast<long>(size.width) * size.height;
}

/// The samples per pixel for smooth edges; 0 for no multisampling.
int samplesFor(const PictureSize& size) {
  constexpr long WANTED = 8;
  const long samples = std::min(WANTED, MAX_SAMPLES / pixelsOf(size));
  return samples < 2 ? 0 : static_cast<int>(samples);
}

/// Where multisampling does not help, or costs more, edges become smooth by
/// drawing the picture larger, by this factor in each direction. Software has no
/// more than four samples per pixel, and takes several times as long for them.
int enlargementFor(const SceneRenderer& scene, EglRenderWindow& window, const PictureSize& size) {
  constexpr int WANTED = 2;
  const bool fits = WANTED * std::max(size.width, size.height) <= window.getLargestSize() &&
                    static_cast<long>(WANTED) * WANTED * pixelsOf(size) <= MAX_SAMPLES;
  const bool helps = window.drawsInSoftware() || scene.hasTranslucency() || scene.hasFineShapes();
  return fits && helps ? WANTED : 1;
}

void requireSize(const PictureSize& size, int largestSize) {
  if (std::max(size.width, size.height) > largestSize) {
    throw RenderingUnavailable("A picture of " + std::to_string(size.width) + " x " +
                               std::to_string(size.height) +
                               " pixels is larger than OpenGL can draw here: at most " +
                               std::to_string(largestSize) + " pixels each way");
  }
}

/// As the camera was pointed without a window, it shows all of the model in a picture that is
/// wider than high.
void pointCamera(SceneRenderer& renderer, const RenderOptions& options) {
  if (options.height > options.width) {
    renderer.resetView();
  }
  if (options.fitsModel) {
    renderer.fitModel();
  }
  if (!options.fitted.empty() && !renderer.fit(options.fitted)) {
    throw NothingToFit("The items that the picture is to fit show no geometry");
  }
}

/// VTK's own opacities depend on the order in which translucent things are drawn.
Picture drawTransparent(SceneRenderer& renderer, EglRenderWindow& window, int enlargement) {
  const auto drawOn = [&](const Vector3& color) {
    renderer.setBackground(color);
    window.Render();
    return Picture::of(window, enlargement);
  };
  const Picture onBlack = drawOn({0.0, 0.0, 0.0});
  return Picture::withOpacity(onBlack, drawOn({1.0, 1.0, 1.0}));
}

}  // namespace

int RenderOptions::scaledWidth() const {
  return std::max(1, static_cast<int>(std::lround(width * scale)));
}

int RenderOptions::scaledHeight() const {
  return std::max(1, static_cast<int>(std::lround(height * scale)));
}

Picture renderPicture(const lum::SceneNode& scene, const RenderOptions& options) {
  VEMO_REQUIRE(options.width > 0 && options.height > 0, "A picture has at least one pixel");
  VEMO_REQUIRE(options.scale > 0.0, "A scale is above 0");
  const PictureSize size{options.scaledWidth(), options.scaledHeight()};
  const VtkMessages messages;
  const CurrentContextKeeper keeper;
  const auto window = EglRenderWindow::open(size.width, size.height);
  requireSize(size, window->getLargestSize());
  SceneRenderer renderer(scene,
                         {.viewAngle = options.viewAngle,
                          .fitsModel = options.fitsModel,
                          .fitted = options.fitted,
                          .pixelScale = options.scale,
                          .pictureHeight = static_cast<double>(size.height)},
                         Drawn::ONCE);
  const int enlargement = enlargementFor(renderer, *window, size);
  renderer.scalePixels(enlargement * options.scale);
  renderer.addTo(*window, enlargement > 1 ? 0 : samplesFor(size));
  window->SetSize(size.width * enlargement, size.height * enlargement);
  pointCamera(renderer, options);
  if (options.isTransparent) {
    return drawTransparent(renderer, *window, enlargement);
  }
  window->Render();
  return Picture::of(*window, enlargement);
}

}  // namespace vemo
