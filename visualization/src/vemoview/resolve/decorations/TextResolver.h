#pragma once

#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class TextDrawable;
}

namespace vemo {

class FontResolver;

/// Nothing for a blank text, or one without a finite position.
std::optional<TextDecoration> resolveText(const lum::TextDrawable& text, FontResolver& fonts);

}  // namespace vemo
