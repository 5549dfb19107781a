#include "vemoview/resolve/decorations/DecorationResolver.h"

#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/decorations/LegendResolver.h"
#include "vemoview/resolve/decorations/TextResolver.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <utility>

namespace vemo {

namespace {

/// More of them would cover each other, and each is laid out at every drawing.
constexpr int MOST_DECORATIONS = 2000;

bool isDecoration(const lum::Drawable& drawable) {
  return dynamic_cast<const lum::TriadDrawable*>(&drawable) != nullptr ||
         dynamic_cast<const lum::PlacedDrawable*>(&drawable) != nullptr;
}

template <class T>
bool isInWindow(const lum::Drawable& drawable) {
  const auto* const attributes = drawable.findAttributes<T>();
  return attributes == nullptr || attributes->getCoordinateSpace() == lum::CoordinateSpace::WINDOW;
}

/// Such a decoration stays where it is, however many instances its assembly has.
bool isInWindow(const lum::Drawable& drawable) {
  return dynamic_cast<const lum::LegendDrawable*>(&drawable) != nullptr ||
         (dynamic_cast<const lum::TextDrawable*>(&drawable) != nullptr &&
          isInWindow<lum::AnnotationAttributes>(drawable)) ||
         (dynamic_cast<const lum::ImageDrawable*>(&drawable) != nullptr &&
          isInWindow<lum::ImageAttributes>(drawable));
}

/// Adds one instance of a decoration, if anything of it is seen.
void append(const lum::Drawable& drawable, const InstanceTransform* transform, const CameraIndices& cameras,
            std::vector<Decoration>& to) {
  const auto add = [&](auto content) {
    if (content) {
      to.push_back({&drawable, std::move(*content)});
    }
  };
  if (const auto* const triad = dynamic_cast<const lum::TriadDrawable*>(&drawable)) {
    add(resolveTriad(*triad, transform, cameras));
  } else if (const auto* const legend = dynamic_cast<const lum::LegendDrawable*>(&drawable)) {
    add(resolveLegend(*legend));
  } else if (const auto* const text = dynamic_cast<const lum::TextDrawable*>(&drawable)) {
    add(resolveText(*text, transform));
  } else if (const auto* const image = dynamic_cast<const lum::ImageDrawable*>(&drawable)) {
    add(resolveImage(*image, transform));
  }
}

}  // namespace

std::vector<Decoration> DecorationResolver::resolve(const std::vector<VisibleDrawable>& drawables) {
  std::vector<Decoration> result;
  for (const VisibleDrawable& visible : drawables) {
    const lum::Drawable& drawable = *visible.drawable;
    if (!isDecoration(drawable)) {
      continue;
    }
    forEachInstance(isInWindow(drawable) ? nullptr : visible.transforms,
                    [&](const InstanceTransform* transform) {
                      if (hasRoom()) {
                        append(drawable, transform, _cameras, result);
                      }
                    });
  }
  return result;
}

/// Counts a further decoration if there is room for it.
bool DecorationResolver::hasRoom() {
  if (_count < MOST_DECORATIONS) {
    ++_count;
    return true;
  }
  if (!_isFull) {
    reportFinding(FindingCode::DECORATIONS_LIMITED, "Only the first " + std::to_string(MOST_DECORATIONS) +
                                                        " triads, legends, texts and images are shown");
    _isFull = true;
  }
  return false;
}

}  // namespace vemo
