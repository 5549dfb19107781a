#include "vemoview/render/Decorations.h"

#include "scenegraph/Logger.h"
#include "scenegraph/drawables/Overlays.h"
#include "scenegraph/drawables/TriadDrawable.h"
#include "vemoview/render/ImagePlate.h"
#include "vemoview/render/LegendBar.h"
#include "vemoview/render/TextAnnotation.h"
#include "vemoview/render/Triad.h"

namespace {

/// More of them would cover each other, and each is laid out at every drawing.
constexpr int MOST_DECORATIONS = 2000;

/// Whether the drawable is one of them.
bool addDecoration(const lum::Drawable& drawable, const double* placement, const CameraBook& cameras,
                   vtkRenderer& renderer) {
  if (const auto* const triad = dynamic_cast<const lum::TriadDrawable*>(&drawable)) {
    addTriad(*triad, placement, cameras, renderer);
    return true;
  }
  if (const auto* const legend = dynamic_cast<const lum::LegendDrawable*>(&drawable)) {
    addLegend(*legend, renderer);
    return true;
  }
  if (const auto* const text = dynamic_cast<const lum::TextDrawable*>(&drawable)) {
    addText(*text, placement, renderer);
    return true;
  }
  if (const auto* const image = dynamic_cast<const lum::ImageDrawable*>(&drawable)) {
    addImage(*image, placement, renderer);
    return true;
  }
  return false;
}

}  // namespace

void addDecorations(const std::vector<VisibleDrawable>& drawables, const CameraBook& cameras,
                    vtkRenderer& renderer) {
  int count = 0;
  for (const VisibleDrawable& visible : drawables) {
    forEachPlacement(visible.placements, [&](const double* placement) {
      if (count < MOST_DECORATIONS && addDecoration(*visible.drawable, placement, cameras, renderer)) {
        ++count;
      }
    });
    if (count == MOST_DECORATIONS) {
      VEMO_LOG_WARNING("Only the first " << MOST_DECORATIONS << " triads, texts and images are shown");
      return;
    }
  }
}
