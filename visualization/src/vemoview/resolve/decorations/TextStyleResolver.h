#pragma once

#include <vemo/resolve/Decoration.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>

namespace vemo {

/// Null has the style of fresh attributes.
TextStyle resolveTextStyle(const lum::TextAttributes* attributes);

/// The height of a line as a fraction of the window's, or the default where the
/// attributes (or null) leave it open.
double resolveLineHeight(const lum::TextAttributes* attributes, double byDefault);

}  // namespace vemo
