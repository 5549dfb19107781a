#pragma once

namespace lum::io {

/// What became of reading or writing a file. The numbers are exit codes and
/// results of hosts: they never change.
enum class FileIoStatus : int {
  Success = 0,
  NotFound = 2,
  /// No file of a format that is known here, or one of a later version.
  UnsupportedFormat = 3,
  /// The file cannot be read, or what it holds does not hold together.
  ReadError = 5,
  WriteError = 6,
};

}  // namespace lum::io
