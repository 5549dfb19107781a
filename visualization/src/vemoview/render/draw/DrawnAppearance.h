#pragma once

#include <vemo/resolve/Appearance.h>

namespace vemo {

/// An appearance that is drawn alike, with the same values for all that is not seen of it: of a surface
/// without edges, for example, the width of lines.
Appearance drawnAppearance(const Appearance& appearance);

}  // namespace vemo
