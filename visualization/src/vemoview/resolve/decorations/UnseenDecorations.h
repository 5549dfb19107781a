#pragma once

#include <vemo/resolve/Decoration.h>

#include <vector>

namespace vemo {

class ViewVolume;

/// Reports texts, images and triads in the model that a view does not show.
/// @param canvasHeight as a part of the window's
void reportUnseenDecorations(const std::vector<Decoration>& decorations, const ViewVolume& view,
                             double canvasHeight);

}  // namespace vemo
