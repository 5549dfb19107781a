#include <vemo/import/Exception.h>
#include <vemo/scenegraph/Finding.h>

#include <system_error>
#include <utility>

namespace vemo {

Exception::Exception(std::string message) : _message(std::move(message)) {}
FutureVersionException::FutureVersionException(std::string message) : Exception(std::move(message)) {}

// Key functions: one typeinfo per class, so exceptions can be caught across
// libraries.
Exception::~Exception() = default;
IOException::~IOException() = default;
UnreadableException::UnreadableException(const std::string& message, int error)
    : IOException(message), _error(error) {
  setCause(std::generic_category().message(error));
}

UnreadableException::~UnreadableException() = default;
FileNotFoundException::~FileNotFoundException() = default;
ZipException::~ZipException() = default;
OutputException::~OutputException() = default;
XMLException::~XMLException() = default;
NumberFormatException::~NumberFormatException() = default;
FutureVersionException::~FutureVersionException() = default;

void Exception::setEntry(const std::string& entry) {
  if (_entry.empty()) {
    _entry = entry;
  }
}

void Exception::setItemPath(const std::string& itemPath) {
  if (_itemPath.empty()) {
    _itemPath = itemPath;
  }
}

void Exception::setAttribute(const std::string& attribute) {
  if (_attribute.empty()) {
    _attribute = attribute;
  }
}

void Exception::setLine(int line) {
  if (_line == 0) {
    _line = line;
  }
}

std::string Exception::getPlace() const {
  return describePlace(_itemPath, _line, _entry, _attribute);
}

}  // namespace vemo
