#include "vemoview/resolve/decorations/TextStyleResolver.h"

#include "base/Utf8.h"
#include "vemoview/resolve/decorations/FontResolver.h"
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/Findings.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace vemo {

namespace {

/// Of which a text fills no more: its pixels are all drawn, also those beside the window. Each takes some
/// 43 bytes.
constexpr double MOST_PICTURES = 2.0;

double picturesStated(std::string_view text, double lineHeight) {
  const Vector<2, double> extent = lineHeight * textExtent(text);
  return extent[0] * extent[1] * USUAL_HEIGHT / USUAL_WIDTH;
}

/// The greatest height of lines, in pixels, at which a text still fits into a texture.
double greatestInTexture(const Vector<2, double>& extent) {
  constexpr double MAX_TEXTURE_SIZE = 16384.0;
  return MAX_TEXTURE_SIZE / std::ranges::max(extent);
}

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
                           std::initializer_list<std::string_view> texts, const std::string& owner,
                           FontResolver& fonts) {
  TextStyle style;
  if (attributes != nullptr) {
    applyAttributes(*attributes, style);
  }
  style.fontFile = fonts.resolve(style, texts, owner);
  return style;
}

Vector<2, double> textExtent(std::string_view text) {
  // Of the widest letters.
  constexpr double MAX_LETTER_WIDTH = 0.8;
  int lines = 1;
  int longest = 1;
  int length = 0;
  for (const char byte : text) {
    length = byte == '\n' ? 0 : length + (isContinuationByte(byte) ? 0 : 1);
    lines += byte == '\n' ? 1 : 0;
    longest = std::max(longest, length);
  }
  return {MAX_LETTER_WIDTH * longest, static_cast<double>(lines)};
}

double picturesFilledBy(std::string_view text, double lineHeight) {
  return std::min(picturesStated(text, lineHeight), MOST_PICTURES);
}

LineHeightLimit::LineHeightLimit(std::string_view text) : _extent(textExtent(text)) {}

double LineHeightLimit::in(const Vector<2, double>& window) const {
  return std::min(greatestInTexture(_extent),
                  std::sqrt(MOST_PICTURES * window[0] * window[1] / (_extent[0] * _extent[1])));
}

void reportIfTooLong(std::string_view text, double lineHeight, const std::string& owner) {
  // Smooth edges may need twice as many pixels as the picture has.
  constexpr double ENLARGEMENT = 2.0;
  constexpr double LARGE_HEIGHT = 2160.0;
  const double pictures = picturesStated(text, lineHeight);
  if (pictures > MOST_PICTURES) {
    reportFinding(FindingCode::TEXT_CHANGED,
                  fmt::format("{} would be as large as {:.0f} pictures and is drawn smaller than stated",
                              owner, pictures));
    return;
  }
  const double height = greatestInTexture(textExtent(text)) / (ENLARGEMENT * lineHeight);
  if (height < LARGE_HEIGHT) {
    reportFinding(
        FindingCode::TEXT_CHANGED,
        fmt::format(
            "{} is too long: in pictures higher than {:.0f} pixels it may be drawn smaller than stated",
            owner, height));
  }
}

void reportIfTooSmall(double lineHeight, const std::string& owner) {
  if (lineHeight * USUAL_HEIGHT < 1.0) {
    reportFinding(FindingCode::DECORATION_NOT_DRAWN,
                  fmt::format("{} is not written in a picture of {} x {} pixels: its lines are lower than a "
                              "pixel",
                              owner, USUAL_WIDTH, USUAL_HEIGHT));
  }
}

double resolveLineHeight(const lum::TextAttributes* attributes, double fallback) {
  return attributes != nullptr && attributes->getFontSize() > 0.0 ? std::min(attributes->getFontSize(), 1.0)
                                                                  : fallback;
}

}  // namespace vemo
