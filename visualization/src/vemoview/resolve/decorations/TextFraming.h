#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/Decoration.h>

#include <vector>

namespace vemo {

/// Decides which texts in the model a view that is to show all of it takes into account:
/// not those so far away that the rest would hardly be visible.
/// @param model around all meshes; images and triads are added to it
/// @return around the model and these texts
Box chooseFramedTexts(std::vector<Decoration>& decorations, Box& model);

void reportUnframedTexts(const std::vector<Decoration>& decorations);

}  // namespace vemo
