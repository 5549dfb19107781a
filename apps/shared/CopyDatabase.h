#pragma once

#include <vemo/base/Progress.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <string>

namespace vemo {

/// Checks a scene-graph database, its arrays included, and writes it again, whole or not
/// at all. Throws lum::io::FileError, OutputException with the cause if it cannot be
/// written, and Cancelled.
/// @param verifier see lum::SDBWriter::setVerifier
void copyDatabase(const std::wstring& path, const std::wstring& output, const ProgressReport& progress,
                  lum::SDBWriter::Verifier verifier);

}  // namespace vemo
