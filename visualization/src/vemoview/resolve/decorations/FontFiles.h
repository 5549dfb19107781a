#pragma once

#include <string>
#include <vector>

namespace vemo {

/// The font files of this computer, sorted within each folder: below the folders that
/// the environment variable VEMO_FONT_PATH lists, with ":" between them, then below
/// those where systems and users have their fonts.
std::vector<std::string> findFontFiles();

}  // namespace vemo
