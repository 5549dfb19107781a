#include "vemoview/resolve/decorations/TextResolver.h"

#include "base/Utf8.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include "vemoview/resolve/values/ReadableText.h"
#include "vemoview/resolve/values/UsableValues.h"
#include <vemo/base/Vector.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>

namespace vemo {

namespace {

constexpr double TEXT_LINE_HEIGHT = 0.04;

}  // namespace

std::optional<TextDecoration> resolveText(const lum::TextDrawable& text, FontResolver& fonts) {
  const auto* const attributes = text.findAttributes<lum::AnnotationAttributes>();
  if (attributes == nullptr || isBlank(attributes->getText())) {
    return std::nullopt;
  }
  const auto* const style = text.findAttributes<lum::TextAttributes>();
  TextDecoration result;
  const std::string what = "The text \"" + shortName(text.getName()) + "\"";
  result.text = readableText(attributes->getText(), MAX_TEXT_BYTES, what);
  result.isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  if (const auto* const position = text.findAttributes<lum::PositionAttributes>()) {
    result.position = position->getPosition();
  }
  if (!result.isInModel) {
    // In a window it has no depth.
    result.position[2] = 0.0;
  }
  if (!isInReach(result.position)) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                  what + " is not drawn: its position is not finite, or too far away");
    return std::nullopt;
  }
  result.horizontal = static_cast<TextDecoration::Horizontal>(attributes->getHorizontalAlignment());
  result.vertical = static_cast<TextDecoration::Vertical>(attributes->getVerticalAlignment());
  result.style = resolveTextStyle(style, {result.text}, what, fonts);
  result.lineHeight = resolveLineHeight(style, TEXT_LINE_HEIGHT);
  reportIfTooSmall(result.lineHeight, what);
  if (attributes->getText().size() <= MAX_TEXT_BYTES) {
    reportIfTooLong(result.text, result.lineHeight, what);
  }
  return result;
}

}  // namespace vemo
