#include "vemoview/import/archive/ArchiveFile.h"
#include "vemoview/import/archive/Compression.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/ZipFileReader.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <minizip/unzip.h>
#include <optional>
#include <span>

namespace vemo {

namespace {

/// A bit of the flags that the format gives each entry.
constexpr std::uint64_t FLAG_ENCRYPTED = 1;

/// A name's length is a 16-bit field.
using NameBuffer = std::array<char, 0x10000>;

[[noreturn]] void failInvalid() {
  throw ZipException("Invalid zip file");
}

/// The size of a file that may be opened as an archive.
std::uint64_t checkFile(const std::wstring& path) {
  struct stat status {};
  if (wideStat(path.c_str(), &status) != 0) {
    throw FileNotFoundException("File does not exist");
  }
  if ((status.st_mode & S_IRUSR) == 0) {
    throw IOException("No read permission");
  }
  // Opening a pipe would wait for somebody to write.
  if (!S_ISREG(status.st_mode)) {
    failInvalid();
  }
  return static_cast<std::uint64_t>(status.st_size);
}

}  // namespace

ZipFileReader::ZipFileReader(const std::wstring& path)
    : _path(path), _fileSize(checkFile(path)), _archive(std::make_shared<ArchiveFile>(path)) {
  indexEntries();
  sortEntries();
}

void ZipFileReader::indexEntries() {
  unz_global_info global;
  if (unzGetGlobalInfo(_archive->getHandle(), &global) != UNZ_OK) {
    failInvalid();
  }
  // The number is the archive's own word: nothing is reserved for it.
  for (uLong i = 0; i < global.number_entry; ++i) {
    const int moved =
        i == 0 ? unzGoToFirstFile(_archive->getHandle()) : unzGoToNextFile(_archive->getHandle());
    if (moved != UNZ_OK) {
      failInvalid();
    }
    _entries.push_back(readDirectoryEntry());
  }
}

ZipFileReader::Entry ZipFileReader::readDirectoryEntry() const {
  unz64_file_pos position;
  unz_file_info64 info;
  NameBuffer name;
  if (unzGetFilePos64(_archive->getHandle(), &position) != UNZ_OK ||
      unzGetCurrentFileInfo64(_archive->getHandle(), &info, name.data(), name.size(), nullptr, 0, nullptr,
                              0) != UNZ_OK) {
    failInvalid();
  }
  return {std::string(name.data(), info.size_filename),
          position.pos_in_zip_directory,
          position.num_of_file,
          info.compressed_size,
          info.uncompressed_size,
          info.compression_method,
          info.flag};
}

void ZipFileReader::sortEntries() {
  // Of equal names the last in the archive is to stay: it comes first here.
  std::ranges::reverse(_entries);
  std::ranges::stable_sort(_entries, {}, &Entry::name);
  const auto first = std::unique(_entries.begin(), _entries.end(), [](const Entry& left, const Entry& right) {
    return left.name == right.name;
  });
  _entries.erase(first, _entries.end());
}

std::string ZipFileReader::getEntryName(int index) const {
  const auto place = static_cast<std::size_t>(std::max(index, 0));
  return place < _entries.size() ? _entries[place].name : std::string();
}

const ZipFileReader::Entry* ZipFileReader::findEntry(const std::string& name) const {
  const auto found = std::ranges::lower_bound(_entries, name, {}, &Entry::name);
  return found == _entries.end() || found->name != name ? nullptr : &*found;
}

int ZipFileReader::getSize(const std::string& name) const {
  const Entry* entry = findEntry(name);
  if (entry == nullptr) {
    return -1;
  }
  return static_cast<int>(std::min<std::uint64_t>(entry->uncompressedSize, SIZE_LIMIT));
}

bool ZipFileReader::isSizePossible(const std::string& name) const {
  const Entry* entry = findEntry(name);
  return entry != nullptr && isSizePossible(*entry);
}

bool ZipFileReader::isSizePossible(const Entry& entry) const {
  if ((entry.flags & FLAG_ENCRYPTED) != 0 || entry.uncompressedSize > SIZE_LIMIT ||
      entry.compressedSize > _fileSize) {
    return false;
  }
  const CompressionMethod* const method = findCompressionMethod(entry.method);
  return method != nullptr && method->isSizePossible(entry.compressedSize, entry.uncompressedSize);
}

bool ZipFileReader::read(const std::string& name, char* buffer) const {
  const Entry* entry = findEntry(name);
  if (entry == nullptr || !isSizePossible(*entry)) {
    return false;
  }
  unz64_file_pos position{entry->directoryOffset, entry->directoryIndex};
  return unzGoToFilePos64(_archive->getHandle(), &position) == UNZ_OK && readContent(*entry, buffer);
}

bool ZipFileReader::readContent(const Entry& entry, char* buffer) const {
  const std::span content(buffer, static_cast<std::size_t>(entry.uncompressedSize));
  const auto blocks = _archive->openEntry(entry.method, entry.compressedSize);
  const auto count =
      blocks ? findCompressionMethod(entry.method)->decompress(*blocks, content) : std::nullopt;
  if (!count) {
    return false;
  }
  std::fill(buffer + *count, buffer + content.size(), '\0');
  return true;
}

}  // namespace vemo
