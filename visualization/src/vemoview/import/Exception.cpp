#include <vemo/import/Exception.h>

#include <utility>

namespace vemo {

Exception::Exception(std::string message) : _message(std::move(message)) {}
FutureVersionException::FutureVersionException(std::string message) : Exception(std::move(message)) {}

// The destructors are defined here so that each class has one type description,
// by which exceptions that leave the library are recognised.
Exception::~Exception() = default;
IOException::~IOException() = default;
FileNotFoundException::~FileNotFoundException() = default;
ZipException::~ZipException() = default;
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

void Exception::setLine(int line) {
  if (_line == 0) {
    _line = line;
  }
}

std::string Exception::getPlace() const {
  std::string place;
  const auto add = [&place](const std::string& text) { place += (place.empty() ? "" : ", ") + text; };
  if (!_itemPath.empty()) {
    add("item " + _itemPath);
  }
  if (_line > 0) {
    add("line " + std::to_string(_line) + " of the scene description");
  }
  if (!_entry.empty()) {
    add("entry '" + _entry + "'");
  }
  return place;
}

}  // namespace vemo
