#pragma once

#include <vemo/import/Export.h>

#include <cstdint>
#include <span>
#include <string>

namespace vemo {

/// A file that is open for reading at any position. It is not mapped: a mapped
/// file that somebody cuts short ends the process.
class VEMO_IMPORT_EXPORT ArchiveFile {
 public:
  /// Throws ZipException when the file cannot be opened.
  explicit ArchiveFile(const std::wstring& path);
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  /// In bytes, when it was opened.
  std::uint64_t getSize() const { return _size; }

  /// False unless all of the bytes are there.
  bool read(std::span<char> bytes, std::uint64_t position) const;

 private:
  int _file;
  std::uint64_t _size = 0;
};

}  // namespace vemo
