#pragma once

#include <string>

namespace vemo {

/// "-".
bool isStandardInput(const std::string& file);

/// The file to open for a scene file that the user named: for "-" a temporary one with all
/// of standard input, which is read at the first call.
std::string readableFile(const std::string& file);

/// A message in which the temporary file is called "standard input".
std::string nameStandardInput(std::string message);

}  // namespace vemo
