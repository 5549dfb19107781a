#pragma once

#include <filesystem>
#include <string>

namespace vemo {

/// Where a file is, by whatever name. It need not exist yet.
std::filesystem::path placeOf(const std::string& path);

/// Throws Failure with WRONG_USAGE when both are the same file: writing the
/// output would destroy the input.
void rejectSameFile(const std::string& file, const std::string& output);

/// Throws Failure with UNSUPPORTED_FORMAT for a database: only archives of the
/// old generation have what the command needs.
void requireArchive(const std::string& file);

}  // namespace vemo
