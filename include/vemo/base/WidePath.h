#pragma once

#include <vemo/base/Export.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace vemo {

/// Converts a path of the operating system, bytes that are mostly UTF-8, to the
/// wide form that this library's interfaces take. A byte that is not part of
/// valid UTF-8 becomes a character of U+DC80..U+DCFF, and the same byte again on
/// the way back, so that every file name survives a round trip.
VEMO_BASE_EXPORT std::wstring toWidePath(std::string_view native);

/// Converts a wide path back. A surrogate pair, from a source of 16-bit
/// characters, is one character. Other surrogates, and values above U+10FFFF,
/// become U+FFFD.
VEMO_BASE_EXPORT std::string toNativePath(std::wstring_view wide);

/// As stat(), which follows links: 0, or -1 with errno set.
VEMO_BASE_EXPORT int wideStat(const wchar_t* path, struct stat* status);

/// As fopen(): null, with errno set, on failure.
VEMO_BASE_EXPORT std::FILE* wideOpen(const wchar_t* path, const char* mode);

}  // namespace vemo
