#include "vemoview/render/decorations/TextAnnotation.h"

#include "vemoview/render/decorations/TextLabel.h"
#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/draw/Screen.h"
#include "vemoview/render/resolve/Placements.h"
#include <vemo/scenegraph/drawables/Overlays.h>

#include <algorithm>
#include <cmath>

namespace vemo {

namespace {

/// The height of a line as a fraction of the window's, unless it is given.
constexpr double LINE_HEIGHT = 0.04;

}  // namespace

void addText(const lum::TextDrawable& text, const double* placement, PropGroup& group) {
  const auto* const attributes = text.findAttributes<lum::AnnotationAttributes>();
  if (attributes == nullptr || attributes->getText().empty()) {
    return;
  }
  const auto* const style = text.findAttributes<lum::TextAttributes>();
  const auto* const place = text.findAttributes<lum::PositionAttributes>();
  const bool isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  const Vector<3, double> given = place != nullptr ? place->getPosition() : Vector<3, double>{};
  const Vector<3, double> position = isInModel ? placed(given, placement) : given;
  const double height =
      style != nullptr && style->getFontSize() > 0.0 ? std::min(style->getFontSize(), 1.0) : LINE_HEIGHT;
  const TextAlignment alignment{static_cast<int>(attributes->getHorizontalAlignment()),
                                static_cast<int>(attributes->getVerticalAlignment())};
  TextLabel label(attributes->getText(), style, alignment, group);
  group.beforeEachRender([=](vtkRenderer& drawn) mutable {
    label.setLineHeight(height * windowHeight(drawn), drawn);
    if (isInModel) {
      label.moveTo(position, drawn);
    } else {
      const auto canvas = sizeInPixels(drawn);
      label.moveTo({position[0] * canvas[0], position[1] * canvas[1]});
    }
  });
}

}  // namespace vemo
