#include "vemoview/resolve/decorations/UnseenDecorations.h"

#include "base/Utf8.h"
#include "vemoview/resolve/canvas/ShownShapes.h"
#include "vemoview/resolve/decorations/DecorationParts.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/values/Groups.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <fmt/format.h>
#include <span>
#include <string>
#include <utility>

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

/// Why a decoration is not seen, or not all of it.
enum class Flaw { NONE, OUTSIDE, TINY, CUT_AWAY, CUT_OFF };

bool isUnseen(Flaw flaw) {
  return flaw != Flaw::NONE && flaw != Flaw::CUT_OFF;
}

/// @param flaw of what is not seen
const char* describe(Flaw flaw, bool isInModel) {
  switch (flaw) {
    case Flaw::OUTSIDE:
      return isInModel ? "behind the camera, or beside the picture" : "it is outside the window";
    case Flaw::TINY:
      return isInModel ? "smaller than a pixel, or seen edge-on" : "less than a pixel of it is in the window";
    default:
      return "cut away by the clipping planes";
  }
}

/// Finds out why decorations are not seen; nothing is found if that is reported otherwise.
class FlawFinder {
 public:
  /// @param isOfModel whether to look at those in the model, or at those in the window
  FlawFinder(const DecorationView& view, bool isOfModel)
      : _isOfModel(isOfModel),
        _pixels(pixelsOf(view.size)),
        _windowView(viewOfWindow()),
        _canvas(isOfModel ? *view.canvas : UsualCanvas{_windowView, PictureSamples(view.size)}),
        _clipPlanes(view.clipPlanes),
        _findsCut(!isOfModel || view.showsAll),
        _measure(_canvas.view, _pixels, view.measureText) {}

  Flaw find(const Decoration::Content& content) const {
    return isInModel(content) == _isOfModel ? std::visit(*this, content) : Flaw::NONE;
  }

  Flaw operator()(const LegendDecoration& /*legend*/) const { return Flaw::NONE; }

  Flaw operator()(const TextDecoration& text) const {
    return text.isFramed ? findFlaw(_measure(text)) : Flaw::NONE;
  }

  Flaw operator()(const TriadDecoration& triad) const { return findFlaw(_measure(triad)); }

  Flaw operator()(const ImageDecoration& image) const {
    const auto [a, b, c, d] = cornersOf(image);
    const Flaw flaw = findFlaw({{{a}, {b}, {c}, {d}}, !_isOfModel});
    const Box box = boundsOf(image);
    const bool isTiny = box.longestSide() * USUAL_HEIGHT < _canvas.view.heightAt(_canvas.view.depthOf(box));
    if (isUnseen(flaw) || (!isTiny && shows(image, image.isClipped ? _clipPlanes : NO_PLANES))) {
      return flaw;
    }
    return _isOfModel && !isTiny && shows(image, NO_PLANES) ? Flaw::CUT_AWAY : Flaw::TINY;
  }

 private:
  static constexpr std::span<const ClipPlane> NO_PLANES{};

  Flaw findFlaw(const DecorationParts& parts) const {
    if (parts.parts.empty()) {
      return Flaw::NONE;
    }
    unsigned beyondAll = ViewVolume::ALL_SIDES;
    unsigned beyondAny = ViewVolume::NO_SIDE;
    for (const DecorationPart& part : parts.parts) {
      const auto [nearEnd, farEnd] = reachesOf(part.extent);
      beyondAll &= _canvas.view.sidesBeyond(part.place, nearEnd);
      beyondAny |= _canvas.view.sidesBeyond(part.place, farEnd);
    }
    return beyondAll != ViewVolume::NO_SIDE                                 ? Flaw::OUTSIDE
           : _findsCut && parts.isExact && beyondAny != ViewVolume::NO_SIDE ? Flaw::CUT_OFF
                                                                            : Flaw::NONE;
  }

  /// With the one, all of what has the extent is beyond a side that its place is beyond; with the
  /// other, a part of it is. Less than a pixel does not count.
  std::pair<PictureReach, PictureReach> reachesOf(const TextBox& extent) const {
    constexpr double LEAST = 1.0;
    // The window's view is as wide as it is high.
    const double halfHeight = _pixels[1] / 2.0;
    const double halfWidth = _isOfModel ? halfHeight : _pixels[0] / 2.0;
    const auto& [low, high] = extent;
    return {{(-low[0] - LEAST) / halfWidth, (high[0] - LEAST) / halfWidth, (-low[1] - LEAST) / halfHeight,
             (high[1] - LEAST) / halfHeight},
            {(LEAST - high[0]) / halfWidth, (LEAST + low[0]) / halfWidth, (LEAST - high[1]) / halfHeight,
             (LEAST + low[1]) / halfHeight}};
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
  bool _findsCut;
  DecorationMeasure _measure;
};

void reportUnseen(const Decoration& decoration, bool isOfModel, const std::string& repeats,
                  const char* reason) {
  const char* const kind = describeKind(decoration.content);
  const std::string name = shortName(decoration.drawable->getName());
  if (isOfModel) {
    reportFinding(FindingCode::DECORATION_NOT_IN_VIEW,
                  fmt::format("The view does not show {}the {} \"{}\": {}", repeats, kind, name, reason));
  } else {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                  fmt::format("The {} \"{}\" is not drawn: {}", kind, name, reason));
  }
}

/// @param instances of one drawable
void reportFlaws(std::span<const Decoration> instances, bool isOfModel, const FlawFinder& finder) {
  std::vector<Flaw> unseen;
  bool isCutOff = false;
  for (const Decoration& instance : instances) {
    const Flaw flaw = finder.find(instance.content);
    if (isUnseen(flaw)) {
      unseen.push_back(flaw);
    }
    isCutOff = isCutOff || flaw == Flaw::CUT_OFF;
  }
  const Decoration& first = instances.front();
  const NodeScope scope(*first.drawable);
  if (!unseen.empty()) {
    reportUnseen(
        first, isOfModel,
        instances.size() > 1 ? fmt::format("{} of {} repeats of ", unseen.size(), instances.size()) : "",
        describe(unseen.front(), isOfModel));
  } else if (isCutOff) {
    reportFinding(
        FindingCode::DECORATION_CUT,
        fmt::format("The {} \"{}\" is cut off: a part of it is outside the {}", describeKind(first.content),
                    shortName(first.drawable->getName()), isOfModel ? "picture" : "window"));
  }
}

void reportFlaws(const std::vector<Decoration>& decorations, const DecorationView& view, bool isOfModel) {
  const FlawFinder finder(view, isOfModel);
  forEachGroup(
      std::span(decorations),
      [](const Decoration& a, const Decoration& b) { return a.drawable == b.drawable; },
      [&](std::span<const Decoration> instances) { reportFlaws(instances, isOfModel, finder); });
}

}  // namespace

void reportUnseenDecorations(const std::vector<Decoration>& decorations, const DecorationView& view) {
  reportFlaws(decorations, view, false);
  if (view.canvas != nullptr) {
    reportFlaws(decorations, view, true);
  }
}

}  // namespace vemo
