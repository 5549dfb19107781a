#include "vemoview/render/context/CurrentContextKeeper.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include "vemoview/render/context/VtkMessages.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/render/SceneRenderer.h>

#include <algorithm>
#include <string>

namespace vemo {

namespace {

/// The largest frame buffer, in samples of all its pixels.
constexpr long MAX_SAMPLES = 128L << 20;

long pixelsOf(const RenderOptions& options) {
  return static_cast<long>(options.width) * options.height;
}

/// The samples per pixel for smooth edges; 0 for no multisampling.
int samplesFor(const RenderOptions& options) {
  constexpr long WANTED = 8;
  const long samples = std::min(WANTED, MAX_SAMPLES / pixelsOf(options));
  return samples < 2 ? 0 : static_cast<int>(samples);
}

/// Where multisampling does not help, or costs more, edges become smooth by
/// drawing the picture larger, by this factor in each direction. Software has no
/// more than four samples per pixel, and takes several times as long for them.
int enlargementFor(const SceneRenderer& scene, EglRenderWindow& window, const RenderOptions& options) {
  constexpr int WANTED = 2;
  const bool fits = WANTED * std::max(options.width, options.height) <= window.getLargestSize() &&
                    static_cast<long>(WANTED) * WANTED * pixelsOf(options) <= MAX_SAMPLES;
  const bool helps = window.drawsInSoftware() || scene.hasTranslucency() || scene.hasFineShapes();
  return fits && helps ? WANTED : 1;
}

void requireSize(const RenderOptions& options, int largestSize) {
  if (std::max(options.width, options.height) > largestSize) {
    throw RenderingUnavailable("A picture of " + std::to_string(options.width) + " x " +
                               std::to_string(options.height) +
                               " pixels is larger than OpenGL can draw here: at most " +
                               std::to_string(largestSize) + " pixels each way");
  }
}

}  // namespace

Picture renderPicture(const lum::SceneNode& scene, const RenderOptions& options) {
  VEMO_REQUIRE(options.width > 0 && options.height > 0, "A picture has at least one pixel");
  const VtkMessages messages;
  const CurrentContextKeeper keeper;
  const auto window = EglRenderWindow::open(options.width, options.height);
  requireSize(options, window->getLargestSize());
  SceneRenderer renderer(scene);
  const int enlargement = enlargementFor(renderer, *window, options);
  renderer.scalePixels(enlargement);
  renderer.addTo(*window, enlargement > 1 ? 0 : samplesFor(options));
  window->SetSize(options.width * enlargement, options.height * enlargement);
  window->Render();
  return Picture::of(*window, enlargement);
}

}  // namespace vemo
