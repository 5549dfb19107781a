#include <vemo/scenegraph/io/FileError.h>

#include <cerrno>

namespace lum::io {

FileIoStatus openingStatus(int error) {
  return error == ENOENT || error == ENOTDIR ? FileIoStatus::NotFound : FileIoStatus::ReadError;
}

FileError::FileError(FileIoStatus status, const std::string& text)
    : std::runtime_error(text), _status(status) {}

// Key function: one typeinfo per class, so exceptions can be caught across
// libraries.
FileError::~FileError() = default;

}  // namespace lum::io
