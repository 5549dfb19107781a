#pragma once

#include <vemo/resolve/Decoration.h>

#include <optional>

namespace lum {
class TextDrawable;
}

namespace vemo {

/// The instance of a text with a transform, which a text in the window ignores.
/// Nothing for an empty one.
std::optional<TextDecoration> resolveText(const lum::TextDrawable& text, const InstanceTransform* transform);

}  // namespace vemo
