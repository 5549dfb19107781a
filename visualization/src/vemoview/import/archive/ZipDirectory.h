#pragma once

#include "vemoview/import/archive/ArchiveFile.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The structure of zip archives (APPNOTE.TXT, section 4.3): the directory at the
/// end, and a local header in front of the bytes of each entry. Archives of
/// several files are not supported.
namespace vemo {

/// What the directory says of an entry.
struct ZipEntry {
  std::string name;
  /// Of its local header in the file.
  std::uint64_t position = 0;
  std::uint64_t compressedSize = 0;
  std::uint64_t uncompressedSize = 0;
  std::uint16_t method = 0;
  std::uint16_t flags = 0;
  std::uint32_t checksum = 0;
};

struct ZipDirectory {
  /// In the order in which the archive lists them.
  std::vector<ZipEntry> entries;
  /// Whether it lists more than it says.
  bool isMiscounted = false;
  /// Whether the bytes in front of the archive begin as another one does.
  bool hasOtherInFront = false;
};

/// Throws ZipException when the file is not an archive, or its directory is
/// damaged. Other bytes may stand in front of the archive.
ZipDirectory readZipDirectory(const ArchiveFile& file);

/// Where the compressed bytes of an entry begin; nothing when there is no local
/// header, or it contradicts the directory.
std::optional<std::uint64_t> findContent(const ArchiveFile& file, const ZipEntry& entry);

/// Whether the local header, which findContent found, has the name of the directory.
bool isNamedAlike(const ArchiveFile& file, const ZipEntry& entry);

}  // namespace vemo
