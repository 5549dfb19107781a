#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Decoration.h>

#include <functional>
#include <optional>

namespace vemo {

/// In pixels from the place of a text, to the right and upwards.
struct TextBox {
  Vector<2, double> low;
  Vector<2, double> high;
};

/// The box around what is drawn of a text whose lines have a height in pixels; nothing if that is
/// nothing.
using TextMeasure = std::function<std::optional<TextBox>(const TextDecoration& text, double lineHeight)>;

}  // namespace vemo
