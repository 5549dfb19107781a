#include "vemoview/render/decorations/Decorations.h"

#include "vemoview/render/decorations/ImagePlate.h"
#include "vemoview/render/decorations/LegendBar.h"
#include "vemoview/render/decorations/TextAnnotation.h"
#include "vemoview/render/decorations/Triad.h"
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/Overlays.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkRenderer.h>

#include <utility>

namespace vemo {

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

bool isDecoration(const lum::Drawable& drawable) {
  return dynamic_cast<const lum::TriadDrawable*>(&drawable) != nullptr ||
         dynamic_cast<const lum::PlacedDrawable*>(&drawable) != nullptr;
}

template <class T>
bool isInWindow(const lum::Drawable& drawable) {
  const auto* const attributes = drawable.findAttributes<T>();
  return attributes == nullptr || attributes->getCoordinateSpace() == lum::CoordinateSpace::WINDOW;
}

/// Such a one stays where it is, however often its assembly is shown.
bool isInWindow(const lum::Drawable& drawable) {
  return dynamic_cast<const lum::LegendDrawable*>(&drawable) != nullptr ||
         (dynamic_cast<const lum::TextDrawable*>(&drawable) != nullptr &&
          isInWindow<lum::AnnotationAttributes>(drawable)) ||
         (dynamic_cast<const lum::ImageDrawable*>(&drawable) != nullptr &&
          isInWindow<lum::ImageAttributes>(drawable));
}

}  // namespace

Decorations::Decorations(vtkRenderer& renderer, const CameraBook& cameras)
    : _renderer(&renderer), _cameras(cameras) {}

void Decorations::add(const std::vector<VisibleDrawable>& drawables) {
  for (const VisibleDrawable& visible : drawables) {
    auto props = std::make_unique<PropGroup>(*_renderer);
    if (fill(*props, visible)) {
      props->scalePixels(_pixelScale);
      _decorations.push_back({visible.drawable, std::move(props)});
    }
  }
}

/// Whether the drawable is a decoration, and there is room for it.
bool Decorations::fill(PropGroup& props, const VisibleDrawable& visible) {
  if (isInWindow(*visible.drawable)) {
    return addCounted(props, *visible.drawable, nullptr);
  }
  bool isDecoration = false;
  forEachPlacement(visible.placements, [&](const double* placement) {
    isDecoration = addCounted(props, *visible.drawable, placement) || isDecoration;
  });
  return isDecoration;
}

bool Decorations::addCounted(PropGroup& props, const lum::Drawable& drawable, const double* placement) {
  if (_count == MOST_DECORATIONS) {
    if (!_isFull && isDecoration(drawable)) {
      VEMO_LOG_WARNING("Only the first " << MOST_DECORATIONS
                                         << " triads, legends, texts and images are shown");
      _isFull = true;
    }
    return false;
  }
  const bool isAdded = addDecoration(drawable, placement, _cameras, props);
  _count += isAdded ? 1 : 0;
  return isAdded;
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

}  // namespace vemo
