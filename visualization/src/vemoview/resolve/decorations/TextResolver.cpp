#include "vemoview/resolve/decorations/TextResolver.h"

#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

namespace vemo {

namespace {

constexpr double TEXT_LINE_HEIGHT = 0.04;

}  // namespace

std::optional<TextDecoration> resolveText(const lum::TextDrawable& text, const InstanceTransform* transform) {
  const auto* const attributes = text.findAttributes<lum::AnnotationAttributes>();
  if (attributes == nullptr || attributes->getText().empty()) {
    return std::nullopt;
  }
  const auto* const style = text.findAttributes<lum::TextAttributes>();
  TextDecoration result;
  result.text = attributes->getText();
  result.isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  if (const auto* const position = text.findAttributes<lum::PositionAttributes>()) {
    result.position = position->getPosition();
  }
  if (result.isInModel) {
    result.position = transformedPoint(transform, result.position);
  }
  result.horizontal = static_cast<TextDecoration::Horizontal>(attributes->getHorizontalAlignment());
  result.vertical = static_cast<TextDecoration::Vertical>(attributes->getVerticalAlignment());
  result.style = resolveTextStyle(style);
  result.lineHeight = resolveLineHeight(style, TEXT_LINE_HEIGHT);
  return result;
}

}  // namespace vemo
