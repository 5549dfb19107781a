#include "vemoview/resolve/decorations/UnseenDecorations.h"

#include "vemoview/resolve/canvas/ShownShapes.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/Groups.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <algorithm>
#include <fmt/format.h>
#include <span>
#include <string>

namespace vemo {

namespace {

/// Of the usual picture, in pixels.
Vector<2, double> pixelsOf(const Vector<2, double>& size) {
  return {USUAL_WIDTH * size[0], USUAL_HEIGHT * size[1]};
}

/// The coordinates of the window as a model, which the camera sees as it is.
ViewVolume viewOfWindow() {
  CanvasCamera camera;
  camera.isParallel = true;
  camera.parallelScale = 0.5;
  camera.viewpoint = {{0.5, 0.5, 1.0}, {0.5, 0.5, 0.0}, {0.0, 1.0, 0.0}};
  return {camera, 1.0};
}

/// In pixels, as the height of a line is.
PictureReach reachOf(const TextDecoration& text, double lineHeight) {
  // What reaches into the picture by less than a pixel is not seen there.
  constexpr double LEAST = 1.0;
  using Horizontal = TextDecoration::Horizontal;
  using Vertical = TextDecoration::Vertical;
  const Vector<2, double> extent = lineHeight * textExtent(text.text);
  const double left = text.horizontal == Horizontal::LEFT     ? 0.0
                      : text.horizontal == Horizontal::CENTER ? extent[0] / 2.0
                                                              : extent[0];
  const double down = text.vertical == Vertical::BOTTOM   ? 0.0
                      : text.vertical == Vertical::CENTER ? extent[1] / 2.0
                                                          : extent[1];
  return {left - LEAST, extent[0] - left - LEAST, down - LEAST, extent[1] - down - LEAST};
}

/// In pixels, as the height of a label is: on all sides, wherever the labels are.
PictureReach reachOf(const TriadDecoration& triad, double labelHeight) {
  double reach = 0.0;
  for (const std::string& label : triad.labels.value_or(std::array<std::string, 3>())) {
    reach = std::max(reach, labelHeight * std::ranges::max(textExtent(label)));
  }
  if (triad.hasScreenSize) {
    reach += TriadDecoration::LABEL_POSITION * TriadDecoration::LENGTH_IN_LABELS * labelHeight;
  }
  return PictureReach::onAllSides(reach);
}

Box boundsOfTriad(const TriadDecoration& triad) {
  const double length = triad.hasScreenSize ? 0.0 : TriadDecoration::LABEL_POSITION * TriadDecoration::LENGTH;
  const Vector3 diagonal{length, length, length};
  return {triad.position - diagonal, triad.position + diagonal};
}

bool isInModel(const Decoration::Content& content) {
  const auto* const text = std::get_if<TextDecoration>(&content);
  const auto* const image = std::get_if<ImageDecoration>(&content);
  return text != nullptr ? text->isInModel : image == nullptr || image->isInModel;
}

const char* describeKind(const Decoration::Content& content) {
  return std::holds_alternative<TextDecoration>(content)    ? "text"
         : std::holds_alternative<ImageDecoration>(content) ? "image"
                                                            : "triad";
}

constexpr const char* OUTSIDE_VIEW = "behind the camera, or beside the picture";
constexpr const char* OUTSIDE_WINDOW = "it is outside the window";
constexpr const char* CUT_AWAY = "cut away by the clipping planes";
constexpr const char* TINY = "smaller than a pixel, or seen edge-on";
constexpr const char* TINY_IN_WINDOW = "less than a pixel of it is in the window";

/// Finds out why decorations are not seen: null for one that is, or if that is reported
/// otherwise.
class FlawFinder {
 public:
  /// @param canvas null to look at those in the window
  FlawFinder(const UsualCanvas* canvas, const Vector<2, double>& size, std::span<const ClipPlane> clipPlanes)
      : _isOfModel(canvas != nullptr),
        _pixels(pixelsOf(size)),
        _windowView(viewOfWindow()),
        _canvas(canvas != nullptr ? *canvas : UsualCanvas{_windowView, PictureSamples(size)}),
        _clipPlanes(clipPlanes) {}

  const char* find(const Decoration::Content& content) const {
    return isInModel(content) == _isOfModel ? std::visit(*this, content) : nullptr;
  }

  const char* operator()(const LegendDecoration& /*legend*/) const { return nullptr; }

  const char* operator()(const TextDecoration& text) const {
    return text.isFramed
               ? findFlaw({text.position, text.position}, reachOf(text, lineHeight(text.lineHeight)))
               : nullptr;
  }

  const char* operator()(const TriadDecoration& triad) const {
    return findFlaw(boundsOfTriad(triad), reachOf(triad, lineHeight(triad.labelHeight)));
  }

  const char* operator()(const ImageDecoration& image) const {
    const Box box = boundsOf(image);
    const char* const flaw = findFlaw(box, {});
    const bool isTiny = box.longestSide() * USUAL_HEIGHT < _canvas.view.heightAt(_canvas.view.depthOf(box));
    if (flaw != nullptr || (!isTiny && shows(image, image.isClipped ? _clipPlanes : NO_PLANES))) {
      return flaw;
    }
    return !_isOfModel ? TINY_IN_WINDOW : !isTiny && shows(image, NO_PLANES) ? CUT_AWAY : TINY;
  }

 private:
  static constexpr std::span<const ClipPlane> NO_PLANES{};

  static double lineHeight(double partOfWindow) { return USUAL_HEIGHT * partOfWindow; }

  /// @param reach in pixels
  const char* findFlaw(const Box& box, PictureReach reach) const {
    // The window's view is as wide as it is high.
    const double halfHeight = _pixels[1] / 2.0;
    const double halfWidth = _isOfModel ? halfHeight : _pixels[0] / 2.0;
    reach = {reach.left / halfWidth, reach.right / halfWidth, reach.down / halfHeight, reach.up / halfHeight};
    return !_canvas.view.misses(box, reach) ? nullptr : _isOfModel ? OUTSIDE_VIEW : OUTSIDE_WINDOW;
  }

  bool shows(const ImageDecoration& image, std::span<const ClipPlane> clipPlanes) const {
    const auto [a, b, c, d] = cornersOf(image);
    return ShownShapes(_canvas, clipPlanes).showsFace({a, b, c, d});
  }

  bool _isOfModel;
  Vector<2, double> _pixels;
  ViewVolume _windowView;
  UsualCanvas _canvas;
  std::span<const ClipPlane> _clipPlanes;
};

void reportInModel(const Decoration& first, const std::string& repeats, const char* flaw) {
  reportFinding(FindingCode::DECORATION_NOT_IN_VIEW,
                fmt::format("The view does not show {}the {} \"{}\": {}", repeats,
                            describeKind(first.content), first.drawable->getName(), flaw));
}

void reportInWindow(const Decoration& decoration, const char* flaw) {
  reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                fmt::format("The {} \"{}\" is not drawn: {}", describeKind(decoration.content),
                            decoration.drawable->getName(), flaw));
}

/// @param instances of one drawable
void reportUnseen(std::span<const Decoration> instances, const FlawFinder& finder) {
  std::vector<const char*> flaws;
  for (const Decoration& instance : instances) {
    if (const char* const flaw = finder.find(instance.content)) {
      flaws.push_back(flaw);
    }
  }
  if (flaws.empty()) {
    return;
  }
  const Decoration& first = instances.front();
  const NodeScope scope(*first.drawable);
  if (isInModel(first.content)) {
    reportInModel(
        first,
        instances.size() > 1 ? fmt::format("{} of {} repeats of ", flaws.size(), instances.size()) : "",
        flaws.front());
  } else {
    reportInWindow(first, flaws.front());
  }
}

void reportUnseen(const std::vector<Decoration>& decorations, const FlawFinder& finder) {
  forEachGroup(
      std::span(decorations),
      [](const Decoration& a, const Decoration& b) { return a.drawable == b.drawable; },
      [&](std::span<const Decoration> instances) { reportUnseen(instances, finder); });
}

}  // namespace

void reportUnseenDecorations(const std::vector<Decoration>& decorations, const UsualCanvas* canvas,
                             const Vector<2, double>& size, std::span<const ClipPlane> clipPlanes) {
  reportUnseen(decorations, FlawFinder(nullptr, size, {}));
  if (canvas != nullptr) {
    reportUnseen(decorations, FlawFinder(canvas, size, clipPlanes));
  }
}

}  // namespace vemo
