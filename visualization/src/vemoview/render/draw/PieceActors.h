#pragma once

#include "vemoview/render/resolve/Piece.h"

class vtkPlaneCollection;

namespace vemo {

class PropGroup;

/// More planes than these cut the geometry itself, for each of its placements.
inline constexpr int PLANES_IN_MAPPER = 6;

/// Puts what draws a piece into a group. The planes cut it if its appearance
/// says so.
void addActors(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group);

}  // namespace vemo
