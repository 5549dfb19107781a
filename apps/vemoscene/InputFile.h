#pragma once

#include <string>

namespace vemo {

/// "-".
bool isStandardInput(const std::string& file);

/// The file to open for a scene file that the user named: for "-" a temporary one with all
/// of standard input, which is read at the first call, or with its beginning if that is not of a
/// scene file.
std::string readableFile(const std::string& file);

}  // namespace vemo
