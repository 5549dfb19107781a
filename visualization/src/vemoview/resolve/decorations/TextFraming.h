#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/Decoration.h>

#include <vector>

namespace vemo {

/// Decides which texts in the model a view that is to show all of it takes into account:
/// not those so far away that the rest would hardly be visible. A finding names them.
/// @param model around all meshes
void chooseFramedTexts(std::vector<Decoration>& decorations, Box model);

}  // namespace vemo
