#pragma once

#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/io/FileIoStatus.h>

#include <stdexcept>
#include <string>

namespace lum::io {

/// The status of a file that the system does not open, from its error number: NotFound without such a
/// file, else ReadError.
VEMO_SCENEGRAPH_EXPORT FileIoStatus openingStatus(int error);

/// A file or stream that cannot be read or written. The text explains the
/// cause to users.
class VEMO_SCENEGRAPH_EXPORT FileError : public std::runtime_error {
 public:
  FileError(FileIoStatus status, const std::string& text);
  ~FileError() override;

  FileIoStatus getStatus() const { return _status; }

 private:
  FileIoStatus _status;
};

/// A file that the system cannot open or read, as on a faulty disk, or that is not a regular file
/// (ReadError). What is in it is not known to be at fault.
class VEMO_SCENEGRAPH_EXPORT UnreadableFile : public FileError {
 public:
  /// @param error the system's number; 0 if it is not known
  UnreadableFile(const std::string& text, int error);
  ~UnreadableFile() override;

  int getError() const { return _error; }

 private:
  int _error;
};

}  // namespace lum::io
