#include <vemo/scenegraph/io/FileError.h>

namespace lum::io {

FileError::FileError(FileIoStatus status, const std::string& text)
    : std::runtime_error(text), _status(status) {}

// Defined here so that the class has one type description, which exceptions
// that cross library borders are recognised by.
FileError::~FileError() = default;

}  // namespace lum::io
