#pragma once

// X11's headers define Success as a macro. Sources that include them ask
// isSuccess() instead of naming the enumerator.
#pragma push_macro("Success")
#undef Success

namespace lum::io {

/// The outcome of reading or writing a file. The numbers are exit codes and
/// results of hosts: they never change.
enum class FileIoStatus : int {
  Success = 0,
  NotFound = 2,
  /// An unknown format, or a later version of a known one.
  UnsupportedFormat = 3,
  /// The file cannot be read, or its content is inconsistent.
  ReadError = 5,
  WriteError = 6,
};

constexpr bool isSuccess(FileIoStatus status) {
  return status == FileIoStatus::Success;
}

}  // namespace lum::io

#pragma pop_macro("Success")
