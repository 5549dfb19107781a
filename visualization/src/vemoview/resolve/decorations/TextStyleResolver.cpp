#include "vemoview/resolve/decorations/TextStyleResolver.h"

#include "vemoview/resolve/decorations/FontResolver.h"

#include <algorithm>

namespace vemo {

namespace {

void applyAttributes(const lum::TextAttributes& attributes, TextStyle& style) {
  const std::string& family = attributes.getFontFamilyName();
  const std::uint32_t flags = attributes.getFontStyle();
  const std::uint32_t color = attributes.getForegroundColor();
  style.family = family == "Courier" ? TextStyle::Family::COURIER
                 : family == "Times" ? TextStyle::Family::TIMES
                                     : TextStyle::Family::ARIAL;
  style.isBold = (flags & lum::TextAttributes::BOLD) != 0;
  style.isItalic = (flags & lum::TextAttributes::ITALIC) != 0;
  style.hasShadow = (flags & lum::TextAttributes::SHADOW) != 0;
  for (unsigned i = 0; i < style.rgba.size(); ++i) {
    style.rgba[i] = static_cast<std::uint8_t>((color >> (24U - 8U * i)) & 0xFFU);
  }
}

}  // namespace

TextStyle resolveTextStyle(const lum::TextAttributes* attributes,
                           std::initializer_list<std::string_view> texts, const std::string& owner) {
  TextStyle style;
  if (attributes != nullptr) {
    applyAttributes(*attributes, style);
  }
  style.fontFile = resolveFontFile(style, texts, owner);
  return style;
}

double resolveLineHeight(const lum::TextAttributes* attributes, double fallback) {
  return attributes != nullptr && attributes->getFontSize() > 0.0 ? std::min(attributes->getFontSize(), 1.0)
                                                                  : fallback;
}

}  // namespace vemo
