#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstdint>
#include <string>

namespace lum {

// Numbers formatted for users.

/// Six significant digits, without trailing zeros: "0.333333".
VEMO_SCENEGRAPH_EXPORT std::string describeNumber(double number);

/// With thousands separators: "1,234,567".
VEMO_SCENEGRAPH_EXPORT std::string groupDigits(std::int64_t count);

/// "1 point", "1,234 points".
/// @param noun that takes an "s" in the plural
VEMO_SCENEGRAPH_EXPORT std::string withNoun(const std::string& number, const std::string& noun);

/// In bytes, KiB, MiB or larger units: "12 bytes", "12.3 MiB".
VEMO_SCENEGRAPH_EXPORT std::string describeSize(double bytes);

}  // namespace lum
