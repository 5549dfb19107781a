#pragma once

namespace vemo {

class PropGroup;
struct TextDecoration;

/// Adds a text to a group, at its position in the window or, always facing the
/// viewer and never covered, in the model.
void addText(const TextDecoration& text, PropGroup& group);

}  // namespace vemo
