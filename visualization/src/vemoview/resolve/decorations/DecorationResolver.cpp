#include "vemoview/resolve/decorations/DecorationResolver.h"

#include "vemoview/resolve/canvas/BackgroundResolver.h"
#include "vemoview/resolve/decorations/FontResolver.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/decorations/LegendResolver.h"
#include "vemoview/resolve/decorations/TextResolver.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/LegendTicks.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <variant>

namespace vemo {

namespace {

/// Texts and images in all decorations. More would cover each other, and each has
/// pixels of its own and is laid out at every drawing.
constexpr int MAX_PIECES = 2000;

/// So many pictures are filled by all texts, even if these are larger than the picture.
constexpr double MOST_PICTURES = 12.0;

using Content = Decoration::Content;

/// The decoration for a drawable, before it is placed; nothing if the drawable
/// is not one, or cannot be drawn.
std::optional<Content> resolveContent(const lum::Drawable& drawable, const CameraIndices& cameras,
                                      ColorTables& tables, FontResolver& fonts) {
  if (const auto* const triad = dynamic_cast<const lum::TriadDrawable*>(&drawable)) {
    return resolveTriad(*triad, cameras, fonts);
  }
  if (const auto* const legend = dynamic_cast<const lum::LegendDrawable*>(&drawable)) {
    return resolveLegend(*legend, tables, fonts);
  }
  if (const auto* const text = dynamic_cast<const lum::TextDrawable*>(&drawable)) {
    return resolveText(*text, fonts);
  }
  if (const auto* const image = dynamic_cast<const lum::ImageDrawable*>(&drawable)) {
    return resolveImage(*image);
  }
  return std::nullopt;
}

/// The texts and images of a decoration.
int countPieces(const Content& content) {
  if (const auto* const legend = std::get_if<LegendDecoration>(&content)) {
    return 1 + legend->labelCount;
  }
  const auto* const triad = std::get_if<TriadDecoration>(&content);
  return triad != nullptr && triad->labels ? static_cast<int>(triad->labels->size()) : 1;
}

/// How many pictures the texts of a decoration fill at most.
struct FilledPictures {
  double operator()(const LegendDecoration& legend) const {
    const ColorTable& table = legend.table;
    double sum = picturesFilledBy(legend.title, legend.lineHeight);
    for (const std::string& label :
         labelsOf(makeLegendTicks(table.range, table.isLog10, legend.labelCount), legend.labelFormat)) {
      sum += picturesFilledBy(label, legend.lineHeight);
    }
    // Lines become smaller until the legend fits into the window.
    return std::min(sum, 1.0);
  }
  double operator()(const TextDecoration& text) const { return picturesFilledBy(text.text, text.lineHeight); }
  double operator()(const ImageDecoration& /*image*/) const { return 0.0; }
  double operator()(const TriadDecoration& triad) const {
    double sum = 0.0;
    for (const std::string& label : triad.labels.value_or(std::array<std::string, 3>())) {
      sum += picturesFilledBy(label, triad.labelHeight);
    }
    return sum;
  }
};

/// Decorations in the window are not repeated or moved with the instances of
/// their assembly.
bool isInWindow(const Content& content) {
  const auto* const text = std::get_if<TextDecoration>(&content);
  const auto* const image = std::get_if<ImageDecoration>(&content);
  return std::holds_alternative<LegendDecoration>(content) || (text != nullptr && !text->isInModel) ||
         (image != nullptr && !image->isInModel);
}

/// Moves a decoration in the model to an instance.
struct Placing {
  void operator()(LegendDecoration& /*legend*/) const {}
  void operator()(TextDecoration& text) const { text.position = transformedPoint(&transform, text.position); }
  void operator()(ImageDecoration& image) const { image.transform = transform; }
  void operator()(TriadDecoration& triad) const { transformTriad(triad, transform); }

  const InstanceTransform& transform;
};

void clip(Content& content, bool isClipped) {
  if (auto* const image = std::get_if<ImageDecoration>(&content)) {
    image->isClipped = isClipped && image->isInModel;
  }
}

/// The style of a decoration's text; null if it has none.
TextStyle* styleOf(Content& content) {
  return std::visit(
      [](auto& decoration) -> TextStyle* {
        using Kind = std::decay_t<decltype(decoration)>;
        if constexpr (std::is_same_v<Kind, ImageDecoration>) {
          return nullptr;
        } else if constexpr (std::is_same_v<Kind, TriadDecoration>) {
          return decoration.labels ? &decoration.style : nullptr;
        } else {
          return &decoration.style;
        }
      },
      content);
}

/// Nothing for what moves with the model, or is in a part of the window.
std::optional<Vector<2, double>> placeInWindow(const Content& content) {
  const auto inside = [](double x, double y) {
    return Vector<2, double>{std::clamp(x, 0.0, 1.0), std::clamp(y, 0.0, 1.0)};
  };
  if (const auto* const legend = std::get_if<LegendDecoration>(&content)) {
    return inside(legend->position[0] + legend->size[0] / 2.0, legend->position[1] + legend->size[1] / 2.0);
  }
  const auto* const text = std::get_if<TextDecoration>(&content);
  return text != nullptr && !text->isInModel ? std::optional(inside(text->position[0], text->position[1]))
                                             : std::nullopt;
}

/// Texts without a colour are black. On a dark background, where black cannot
/// be read, it cannot be intended.
void makeReadableOnDark(Content& content) {
  constexpr std::array<std::uint8_t, 4> BLACK{0, 0, 0, 255};
  constexpr std::array<std::uint8_t, 4> WHITE{255, 255, 255, 255};
  TextStyle* const style = styleOf(content);
  if (style != nullptr && style->rgba == BLACK) {
    style->rgba = WHITE;
    reportFinding(FindingCode::TEXT_RECOLORED, "Black text is drawn white on the dark background");
  }
}

}  // namespace

std::vector<Decoration> DecorationResolver::resolve(const std::vector<VisibleDrawable>& drawables,
                                                    const DrawableSet& visibleNow) {
  std::vector<Decoration> result;
  // Not kept: until the next time, others may be installed.
  FontResolver fonts;
  for (const VisibleDrawable& visible : drawables) {
    if (_taken.isFull) {
      break;
    }
    const NodeScope scope(*visible.drawable);
    auto content = resolveContent(*visible.drawable, _cameras, _tables, fonts);
    if (!content) {
      continue;
    }
    if (auto* const legend = std::get_if<LegendDecoration>(&*content)) {
      _taken.legends.place(*legend, *visible.drawable, visibleNow);
    }
    clip(*content, visible.isClipped);
    if (isDark(_background, placeInWindow(*content))) {
      makeReadableOnDark(*content);
    }
    forEachInstance(isInWindow(*content) ? nullptr : visible.transforms,
                    [&](const InstanceTransform* transform) {
                      if (takeRoom(*content)) {
                        Decoration& decoration = result.emplace_back(Decoration{visible.drawable, *content});
                        if (transform != nullptr) {
                          std::visit(Placing{*transform}, decoration.content);
                        }
                      }
                    });
  }
  _taken.legends.shareRoom(result);
  return result;
}

bool DecorationResolver::takeRoom(const Content& content) {
  if (!_taken.isFull) {
    _taken.pieces += countPieces(content);
    _taken.pictures += std::visit(FilledPictures(), content);
    _taken.isFull = _taken.pieces > MAX_PIECES || _taken.pictures > MOST_PICTURES;
    if (_taken.isFull) {
      reportFinding(FindingCode::DECORATIONS_LIMITED, "Only the first " + std::to_string(_taken.count) +
                                                          " triads, legends, texts and images are shown");
    }
  }
  _taken.count += _taken.isFull ? 0 : 1;
  return !_taken.isFull;
}

}  // namespace vemo
