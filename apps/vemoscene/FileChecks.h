#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>

namespace vemo {

/// Where a file is, by whatever name. It need not exist yet.
std::filesystem::path placeOf(const std::string& path);

/// Device and number. Names of one place may differ, such as in case where that does not count.
using FileIdentity = std::pair<dev_t, ino_t>;

/// Nothing unless there is a regular file.
std::optional<FileIdentity> identityOf(const std::string& path);

/// Throws Failure with WRONG_USAGE when both are the same file: writing the
/// output would destroy the input.
void rejectSameFile(const std::string& file, const std::string& output);

/// The same for two outputs.
void rejectSameOutput(const std::string& output, const std::string& other);

/// Throws Failure with UNSUPPORTED_FORMAT for a database: only archives of the
/// old generation have what the command needs.
void requireArchive(const std::string& file);

}  // namespace vemo
