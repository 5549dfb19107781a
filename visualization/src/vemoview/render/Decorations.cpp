#include "vemoview/render/Decorations.h"

#include "scenegraph/Logger.h"
#include "scenegraph/drawables/Overlays.h"
#include "scenegraph/drawables/TriadDrawable.h"
#include "vemoview/render/ImagePlate.h"
#include "vemoview/render/LegendBar.h"
#include "vemoview/render/TextAnnotation.h"
#include "vemoview/render/Triad.h"

#include <vtkRenderer.h>

#include <utility>

namespace {

/// More of them would cover each other, and each is laid out at every drawing.
constexpr int MOST_DECORATIONS = 2000;

/// Whether the drawable is one of them.
bool addDecoration(const lum::Drawable& drawable, const double* placement, const CameraBook& cameras,
                   PropGroup& group) {
  if (const auto* const triad = dynamic_cast<const lum::TriadDrawable*>(&drawable)) {
    addTriad(*triad, placement, cameras, group);
    return true;
  }
  if (const auto* const legend = dynamic_cast<const lum::LegendDrawable*>(&drawable)) {
    addLegend(*legend, group);
    return true;
  }
  if (const auto* const text = dynamic_cast<const lum::TextDrawable*>(&drawable)) {
    addText(*text, placement, group);
    return true;
  }
  if (const auto* const image = dynamic_cast<const lum::ImageDrawable*>(&drawable)) {
    addImage(*image, placement, group);
    return true;
  }
  return false;
}

}  // namespace

Decorations::Decorations(vtkRenderer& renderer, const CameraBook& cameras)
    : _renderer(&renderer), _cameras(cameras) {}

void Decorations::add(const std::vector<VisibleDrawable>& drawables) {
  for (const VisibleDrawable& visible : drawables) {
    if (addOne(visible) && _count == MOST_DECORATIONS) {
      VEMO_LOG_WARNING("Only the first " << MOST_DECORATIONS << " triads, texts and images are shown");
      return;
    }
  }
}

/// Whether the drawable is a decoration.
bool Decorations::addOne(const VisibleDrawable& visible) {
  auto props = std::make_unique<PropGroup>(*_renderer);
  bool isDecoration = false;
  forEachPlacement(visible.placements, [&](const double* placement) {
    if (_count < MOST_DECORATIONS && addDecoration(*visible.drawable, placement, _cameras, *props)) {
      isDecoration = true;
      ++_count;
    }
  });
  if (isDecoration) {
    props->scalePixels(_pixelScale);
    _decorations.push_back({visible.drawable, std::move(props)});
  }
  return isDecoration;
}

void Decorations::show(const DrawableSet& shown) {
  for (const Decoration& decoration : _decorations) {
    decoration.props->show(shown.contains(decoration.drawable));
  }
}

void Decorations::scalePixels(double factor) {
  _pixelScale *= factor;
  for (const Decoration& decoration : _decorations) {
    decoration.props->scalePixels(factor);
  }
}
