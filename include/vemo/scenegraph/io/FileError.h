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

}  // namespace lum::io
