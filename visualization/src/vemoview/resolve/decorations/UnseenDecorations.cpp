#include "vemoview/resolve/decorations/UnseenDecorations.h"

#include "vemoview/resolve/canvas/ViewVolume.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/Groups.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <span>
#include <string>

namespace vemo {

namespace {

/// Where a decoration is in the model, and how far it extends beyond that in the picture.
struct Place {
  Box box;
  PictureReach reach;
};

/// Of a text on all sides, whatever its alignment.
/// @param lineHeight as a part of the canvas's height
PictureReach reachOf(const std::string& text, double lineHeight) {
  const auto [width, height] = textExtent(text).values;
  return {2.0 * lineHeight * width, 2.0 * lineHeight * height};
}

/// Nothing for decorations in the window, and for those that are reported otherwise.
struct PlaceFinder {
  std::optional<Place> operator()(const LegendDecoration& /*legend*/) const { return std::nullopt; }

  std::optional<Place> operator()(const TextDecoration& text) const {
    return text.isInModel && text.isFramed
               ? std::optional(Place{{text.position, text.position},
                                     reachOf(text.text, text.lineHeight / canvasHeight)})
               : std::nullopt;
  }

  std::optional<Place> operator()(const ImageDecoration& image) const {
    return image.isInModel ? std::optional(Place{boundsOf(image), {}}) : std::nullopt;
  }

  std::optional<Place> operator()(const TriadDecoration& triad) const {
    const double labelHeight = triad.labelHeight / canvasHeight;
    Place place{{triad.position, triad.position}, {}};
    for (const std::string& label : triad.labels.value_or(std::array<std::string, 3>())) {
      const PictureReach reach = reachOf(label, labelHeight);
      place.reach.across = std::max(place.reach.across, reach.across);
      place.reach.upwards = std::max(place.reach.upwards, reach.upwards);
    }
    if (triad.hasScreenSize) {
      const double length =
          2.0 * TriadDecoration::LABEL_POSITION * TriadDecoration::LENGTH_IN_LABELS * labelHeight;
      place.reach.across += length;
      place.reach.upwards += length;
    } else {
      const double length = TriadDecoration::LABEL_POSITION * TriadDecoration::LENGTH;
      place.box.add(triad.position + Vector3{length, length, length});
      place.box.add(triad.position - Vector3{length, length, length});
    }
    return place;
  }

  double canvasHeight;
};

const char* describeKind(const Decoration::Content& content) {
  return std::holds_alternative<TextDecoration>(content)    ? "text"
         : std::holds_alternative<ImageDecoration>(content) ? "image"
                                                            : "triad";
}

constexpr const char* TINY = "smaller than a pixel";
constexpr const char* OUTSIDE = "behind the camera, or beside the picture";

/// Why a decoration is not seen; null if it is, or if that is reported otherwise.
const char* findFlaw(const Decoration& decoration, const ViewVolume& view, double canvasHeight) {
  const auto place = std::visit(PlaceFinder{canvasHeight}, decoration.content);
  if (!place) {
    return nullptr;
  }
  const bool isTiny = std::holds_alternative<ImageDecoration>(decoration.content) &&
                      place->box.longestSide() * USUAL_HEIGHT < view.heightAt(place->box);
  return isTiny ? TINY : view.misses(place->box, place->reach) ? OUTSIDE : nullptr;
}

/// @param instances of one drawable
void reportUnseen(std::span<const Decoration> instances, const ViewVolume& view, double canvasHeight) {
  std::vector<const char*> flaws;
  for (const Decoration& instance : instances) {
    if (const char* const flaw = findFlaw(instance, view, canvasHeight)) {
      flaws.push_back(flaw);
    }
  }
  if (flaws.empty()) {
    return;
  }
  const Decoration& first = instances.front();
  const std::string repeats =
      instances.size() > 1 ? fmt::format("{} of {} repeats of ", flaws.size(), instances.size()) : "";
  const NodeScope scope(*first.drawable);
  reportFinding(FindingCode::DECORATION_NOT_IN_VIEW,
                fmt::format("The view does not show {}the {} \"{}\": {}", repeats,
                            describeKind(first.content), first.drawable->getName(), flaws.front()));
}

}  // namespace

void reportUnseenDecorations(const std::vector<Decoration>& decorations, const ViewVolume& view,
                             double canvasHeight) {
  forEachGroup(
      std::span(decorations),
      [](const Decoration& a, const Decoration& b) { return a.drawable == b.drawable; },
      [&](std::span<const Decoration> instances) { reportUnseen(instances, view, canvasHeight); });
}

}  // namespace vemo
