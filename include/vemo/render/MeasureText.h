#pragma once

#include <vemo/render/Export.h>
#include <vemo/resolve/TextMeasure.h>

#include <optional>

namespace vemo {

/// Measures texts as they are drawn, for findings about those that are cut off: see
/// ResolveOptions. Needs no OpenGL.
VEMO_RENDER_EXPORT std::optional<TextBox> measureText(const TextDecoration& text, double lineHeight);

}  // namespace vemo
