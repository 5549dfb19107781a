#pragma once

#include "vemoview/import/archive/Compression.h"
#include <vemo/import/Export.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <minizip/unzip.h>
#include <optional>
#include <string>

namespace vemo {

/// An archive that minizip reads, and the compressed bytes of its entries: of
/// any method, while minizip opens only those that it can decompress.
class VEMO_IMPORT_EXPORT ArchiveFile {
 public:
  /// Throws ZipException.
  explicit ArchiveFile(const std::wstring& path);
  ~ArchiveFile();
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;

  unzFile getHandle() const { return _handle; }

  /// Whether the directory continues after minizip's current entry, whose row
  /// in the directory must be what it read last.
  bool hasRowBehind(const unz_file_info64& row);

  /// The compressed bytes of minizip's current entry, valid until it opens
  /// another one. Nothing when the entry's local header is invalid.
  /// @param method, size as the directory states them, the size in bytes
  std::optional<CompressedBlocks> openEntry(std::uint64_t method, std::uint64_t size);

 private:
  static voidpf open(voidpf archive, const void* path, int mode);
  static long seek(voidpf archive, voidpf stream, ZPOS64_T offset, int origin);

  bool seekContent(std::uint64_t method);
  bool skipLocalHeader(std::uint64_t method);
  std::optional<std::span<const char>> readBlock(std::uint64_t size);

  std::FILE* _stream = nullptr;
  /// Where minizip last looked for something in the file.
  ZPOS64_T _position = 0;
  unzFile _handle = nullptr;
  std::array<char, 0x10000> _block;
};

}  // namespace vemo
