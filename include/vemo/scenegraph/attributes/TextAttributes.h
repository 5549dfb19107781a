#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// How text is written.
class VEMO_SCENEGRAPH_EXPORT TextAttributes final : public Attributes {
  LUM_NODE(TextAttributes, Attributes)
  /// "Arial", "Courier" or "Times".
  LUM_VALUE(std::string, FontFamilyName, _fontFamilyName, "Arial")
  /// The sum of ITALIC, BOLD and SHADOW.
  LUM_VALUE(std::uint32_t, FontStyle, _fontStyle, 0)
  /// Red in the top byte, then green, blue, alpha.
  LUM_VALUE(std::uint32_t, ForegroundColor, _foregroundColor, 0x000000FFU)
  /// The height of a line as a fraction of the window's height; 0 lets
  /// the renderer choose it.
  LUM_VALUE(double, FontSize, _fontSize, 0.0)

 public:
  static constexpr std::uint32_t ITALIC = 1;
  static constexpr std::uint32_t BOLD = 2;
  static constexpr std::uint32_t SHADOW = 4;
};

}  // namespace lum
