#include <vemo/scenegraph/io/FileError.h>

#include <cerrno>

namespace lum::io {

FileIoStatus openingStatus(int error) {
  return error == ENOENT || error == ENOTDIR ? FileIoStatus::NotFound : FileIoStatus::ReadError;
}

FileError::FileError(FileIoStatus status, const std::string& text)
    : std::runtime_error(text), _status(status) {}

UnreadableFile::UnreadableFile(const std::string& text, int error)
    : FileError(FileIoStatus::ReadError, text), _error(error) {}

// Key functions: one typeinfo per class, so exceptions can be caught across
// libraries.
FileError::~FileError() = default;
UnreadableFile::~UnreadableFile() = default;

}  // namespace lum::io
