#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstdint>
#include <string>

namespace lum {

// Numbers for a person.

/// With six significant digits.
VEMO_SCENEGRAPH_EXPORT std::string describeNumber(double number);

/// 1234567 -> "1,234,567".
VEMO_SCENEGRAPH_EXPORT std::string groupDigits(std::int64_t count);

/// "12.3 MiB"; below 1 KiB "12 bytes".
VEMO_SCENEGRAPH_EXPORT std::string describeSize(double bytes);

}  // namespace lum
