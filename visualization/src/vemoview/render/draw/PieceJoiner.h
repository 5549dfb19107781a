#pragma once

#include "vemoview/render/resolve/Piece.h"

#include <vector>

namespace vemo {

/// Groups of pieces that can be drawn at one stroke, since they are small and
/// look alike but for their colours (those by values at points share a table):
/// OpenGL takes as long for a piece of a few
/// triangles as for thousands of them. Large pieces, and those that few others
/// look like, have a group of their own. In the order of each group's first.
std::vector<std::vector<Piece>> groupForJoining(std::vector<Piece> pieces);

/// One piece of those of a group, or of some of it, at least one. The colours
/// of several become scalars of its own; it is of no drawable and no node.
Piece join(const std::vector<const Piece*>& members);

}  // namespace vemo
