#pragma once

class PropGroup;

namespace lum {
class TextDrawable;
}

/// Puts a text into a group, at its place in the window or, always facing the
/// viewer and never covered, at its place in the model. `placement` moves the
/// latter; null moves nothing.
void addText(const lum::TextDrawable& text, const double* placement, PropGroup& group);
