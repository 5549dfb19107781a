#pragma once

class vtkRenderer;

namespace lum {
class TextDrawable;
}

/// Puts a text into a renderer, at its place in the window or, always facing the
/// viewer and never covered, at its place in the model. `placement` moves the
/// latter; null moves nothing.
void addText(const lum::TextDrawable& text, const double* placement, vtkRenderer& renderer);
