#pragma once

#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/Decoration.h>

#include <span>
#include <vector>

namespace vemo {

struct UsualCanvas;

/// Reports texts, images and triads that are not seen: in the window because they are outside
/// of it, or in the model because a view does not show them.
/// @param canvas null for one whose view of the model is not known
/// @param size of the canvas, as a part of the window's
void reportUnseenDecorations(const std::vector<Decoration>& decorations, const UsualCanvas* canvas,
                             const Vector<2, double>& size, std::span<const ClipPlane> clipPlanes);

}  // namespace vemo
