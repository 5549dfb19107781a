#pragma once

#include <vemo/scenegraph/Export.h>

#include <string_view>

namespace lum {

/// Whether a text can be given to the C library's printf together with one
/// double and nothing else: it has exactly one conversion, of the kinds e, f, g
/// and a, small or capital, with a width and a precision of at most two digits.
/// "%%" may be anywhere. Texts of more than 64 bytes are refused.
VEMO_SCENEGRAPH_EXPORT bool isNumberFormat(std::string_view text);

}  // namespace lum
