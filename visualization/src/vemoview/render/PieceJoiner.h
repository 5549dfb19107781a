#pragma once

#include "vemoview/render/Piece.h"

#include <vector>

/// Joins small pieces that look alike but for their colours into few, each
/// drawn at one stroke: OpenGL takes as long for a piece of a few triangles as
/// for thousands of them. The colours of what is joined become scalars of its
/// own. Large pieces, and those that few others look like, stay as they are.
std::vector<Piece> joinSmallPieces(std::vector<Piece> pieces);
