#include "vemoview/resolve/decorations/TextResolver.h"

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

/// However long the text is.
bool isBesideWindow(const TextDecoration& text) {
  using Horizontal = TextDecoration::Horizontal;
  using Vertical = TextDecoration::Vertical;
  const auto& [x, y, z] = text.position.values;
  return !text.isInModel &&
         ((text.horizontal == Horizontal::LEFT && x >= 1.0) ||
          (text.horizontal == Horizontal::RIGHT && x <= 0.0) ||
          (text.vertical == Vertical::BOTTOM && y >= 1.0) || (text.vertical == Vertical::TOP && y <= 0.0));
}

}  // namespace

std::optional<TextDecoration> resolveText(const lum::TextDrawable& text) {
  const auto* const attributes = text.findAttributes<lum::AnnotationAttributes>();
  if (attributes == nullptr || attributes->getText().empty()) {
    return std::nullopt;
  }
  const auto* const style = text.findAttributes<lum::TextAttributes>();
  TextDecoration result;
  const std::string what = "The text \"" + text.getName() + "\"";
  result.text = readableText(attributes->getText(), MAX_TEXT_BYTES, what);
  result.isInModel = attributes->getCoordinateSpace() == lum::CoordinateSpace::MODEL;
  if (const auto* const position = text.findAttributes<lum::PositionAttributes>()) {
    result.position = position->getPosition();
  }
  if (!isInReach(result.position)) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                  what + " is not drawn: its position is not finite, or too far away");
    return std::nullopt;
  }
  result.horizontal = static_cast<TextDecoration::Horizontal>(attributes->getHorizontalAlignment());
  result.vertical = static_cast<TextDecoration::Vertical>(attributes->getVerticalAlignment());
  if (isBesideWindow(result)) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN, what + " is not drawn: it is outside the window");
    return std::nullopt;
  }
  result.style = resolveTextStyle(style, {result.text}, what);
  result.lineHeight = resolveLineHeight(style, TEXT_LINE_HEIGHT);
  reportIfTooSmall(result.lineHeight, what);
  if (attributes->getText().size() <= MAX_TEXT_BYTES) {
    reportIfTooLong(result.text, result.lineHeight, what);
  }
  return result;
}

}  // namespace vemo
