#pragma once

#include "vemoview/render/resolve/Piece.h"

#include <vector>

namespace vemo {

/// The points of a piece sorted into pieces of few sizes by an array over its
/// points, as the drawable's PointScaleAttributes say; they share all arrays.
/// The piece alone when nothing is to be scaled, or its array does not fit. A
/// value that has no size (one that is not a number, or in a logarithmic scale
/// is not above 0) has that of the low end of the range.
std::vector<Piece> splitBySize(Piece piece, const lum::GeometryDrawable& drawable,
                               const lum::PolyDataNode& node);

}  // namespace vemo
