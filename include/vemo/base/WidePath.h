#pragma once

#include <vemo/base/Export.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace vemo {

/// Paths are wide texts in the system's interfaces and bytes, mostly UTF-8, in
/// the operating system's. A byte that belongs to no valid UTF-8 becomes a
/// character of U+DC80..U+DCFF, one that no text holds, and the same byte again
/// on the way back: every file name survives the two conversions.
VEMO_BASE_EXPORT std::wstring toWidePath(std::string_view native);

/// The bytes of a wide path. A surrogate pair, from a source of 16-bit
/// characters, is the character it stands for. What no byte sequence stands
/// for (other surrogates, values above U+10FFFF) becomes U+FFFD.
VEMO_BASE_EXPORT std::string toNativePath(std::wstring_view wide);

/// The status of the file, links followed: 0, or -1 with errno set.
VEMO_BASE_EXPORT int wideStat(const wchar_t* path, struct stat* status);

/// Opens a file as fopen does; null, with errno set, when it cannot. The mode
/// is one of fopen's.
VEMO_BASE_EXPORT std::FILE* wideOpen(const wchar_t* path, const char* mode);

}  // namespace vemo
