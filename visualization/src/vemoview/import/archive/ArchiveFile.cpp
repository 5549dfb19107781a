#include "vemoview/import/archive/ArchiveFile.h"

#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <system_error>

namespace vemo {

ArchiveFile::ArchiveFile(const std::wstring& path) {
  try {
    _file.emplace(toNativePath(path));
  } catch (const std::system_error& error) {
    throw IOException(error.code().message());
  }
  _size = _file->getSize();
}

bool ArchiveFile::read(std::span<char> bytes, std::uint64_t position) const {
  if (position > _size || bytes.size() > _size - position) {
    return false;
  }
  if (_file) {
    return readFile(bytes, position);
  }
  std::ranges::copy(_bytes.subspan(static_cast<std::size_t>(position), bytes.size()),
                    std::as_writable_bytes(bytes).begin());
  return true;
}

bool ArchiveFile::readFile(std::span<char> bytes, std::uint64_t position) const {
  try {
    return _file->read(bytes, position) == bytes.size();
  } catch (const std::system_error& error) {
    throw UnreadableException(fmt::format("The file cannot be read at byte {}", position),
                              error.code().value());
  }
}

}  // namespace vemo
