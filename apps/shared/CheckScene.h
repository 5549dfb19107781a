#pragma once

#include <vemo/scenegraph/Finding.h>

#include <string>
#include <vector>

namespace vemo {

/// Everything wrong or suspicious in a scene file of either generation: goes on after
/// faults, verifies checksums, and prepares the drawing. Throws lum::io::FileError for what
/// is not a scene; that or UnreadableException for what cannot be read.
std::vector<Finding> checkScene(const std::wstring& path);

}  // namespace vemo
