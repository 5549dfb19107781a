#pragma once

#include <vemo/base/Progress.h>

#include <string>

namespace vemo {

/// Checks a scene-graph database, its arrays included, and writes it again, whole or not
/// at all. Throws lum::io::FileError, OutputException with the cause if it cannot be
/// written, and Cancelled.
void copyDatabase(const std::wstring& path, const std::wstring& output, const ProgressReport& progress);

}  // namespace vemo
