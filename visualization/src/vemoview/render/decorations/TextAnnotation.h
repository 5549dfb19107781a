#pragma once

namespace lum {
class TextDrawable;
}

namespace vemo {

class PropGroup;

/// Puts a text into a group, at its place in the window or, always facing the
/// viewer and never covered, at its place in the model. `placement` moves the
/// latter; null moves nothing.
void addText(const lum::TextDrawable& text, const double* placement, PropGroup& group);

}  // namespace vemo
