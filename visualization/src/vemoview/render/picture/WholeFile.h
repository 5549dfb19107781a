#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace vemo {

/// Writes a file whole: a reader sees the old file or the new one, never a part
/// of it. Links are followed; what is no regular file (a pipe, a device) is
/// written straight. Throws PictureWriteError, which names path and cause.
void writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

}  // namespace vemo
