#pragma once

#include <string>

namespace vemo {

/// Throws Failure, with the cause, for what does not exist, cannot be opened, is
/// empty or is not a file. Opening a pipe would wait for a writer, and reading a scene
/// needs seeking.
void requireReadable(const std::string& file);

/// Throws Failure with WRONG_USAGE when both are the same file: writing the
/// output would destroy the input.
void rejectSameFile(const std::string& file, const std::string& output);

enum class SceneKind { ARCHIVE, DATABASE };

/// The generation of the file. Throws Failure for a file that does not exist,
/// cannot be opened, or is of neither generation.
SceneKind detectScene(const std::string& file);

/// Throws Failure with UNSUPPORTED_FORMAT for a database: only archives of the
/// old generation have what the command needs.
void requireArchive(const std::string& file);

}  // namespace vemo
