#include "vemoview/import/archive/ArchiveFile.h"
#include "vemoview/import/archive/Compression.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/archive/ZipFileReader.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <minizip/unzip.h>
#include <optional>
#include <span>
#include <zlib.h>

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
  // Opening a pipe would block until there is a writer.
  if (!S_ISREG(status.st_mode)) {
    failInvalid();
  }
  return static_cast<std::uint64_t>(status.st_size);
}

/// As the format has it of uncompressed content.
std::uint32_t checksumOf(std::span<const char> content) {
  return static_cast<std::uint32_t>(
      crc32_z(0, reinterpret_cast<const Bytef*>(content.data()), content.size()));
}

}  // namespace

ZipFileReader::ZipFileReader(const std::wstring& path)
    : _fileSize(checkFile(path)), _archive(std::make_shared<ArchiveFile>(path)) {
  indexEntries();
  sortEntries();
}

void ZipFileReader::indexEntries() {
  unz_global_info global;
  if (unzGetGlobalInfo(_archive->getHandle(), &global) != UNZ_OK) {
    failInvalid();
  }
  // The archive may state any number: do not reserve memory for it.
  for (uLong i = 0; i < global.number_entry; ++i) {
    const int moved =
        i == 0 ? unzGoToFirstFile(_archive->getHandle()) : unzGoToNextFile(_archive->getHandle());
    if (moved != UNZ_OK) {
      failInvalid();
    }
    _entries.push_back(readDirectoryEntry());
  }
  _isMiscounted = !_entries.empty() && hasFurtherEntries();
}

bool ZipFileReader::hasFurtherEntries() const {
  unz_file_info64 last;
  return unzGetCurrentFileInfo64(_archive->getHandle(), &last, nullptr, 0, nullptr, 0, nullptr, 0) ==
             UNZ_OK &&
         _archive->hasRowBehind(last);
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
          info.flag,
          static_cast<std::uint32_t>(info.crc)};
}

void ZipFileReader::sortEntries() {
  // The last of several entries with the same name is kept: it comes first
  // here.
  std::ranges::reverse(_entries);
  std::ranges::stable_sort(_entries, {}, &Entry::name);
  for (std::size_t i = 1; i < _entries.size(); ++i) {
    const std::string& name = _entries[i].name;
    if (name == _entries[i - 1].name && (_duplicateNames.empty() || _duplicateNames.back() != name)) {
      _duplicateNames.push_back(name);
    }
  }
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
  if ((entry.flags & FLAG_ENCRYPTED) != 0 || findCompressionMethod(entry.method) == nullptr ||
      entry.uncompressedSize > SIZE_LIMIT || entry.compressedSize > _fileSize) {
    return false;
  }
  return entry.uncompressedSize <= std::max(SMALL_ENTRY_SIZE, entry.compressedSize * MAX_DEFLATE_RATIO);
}

bool ZipFileReader::read(const std::string& name, char* buffer, ContentFlaws* flaws) const {
  const Entry* entry = findEntry(name);
  if (entry == nullptr || !isSizePossible(*entry)) {
    return false;
  }
  const std::span content(buffer, static_cast<std::size_t>(entry->uncompressedSize));
  const auto count = readContent(*entry, content);
  if (!count) {
    return false;
  }
  std::ranges::fill(content.subspan(*count), '\0');
  if (flaws != nullptr) {
    flaws->bytesRead = *count < content.size() ? count : std::nullopt;
    flaws->isChecksumWrong = checksumOf(content.first(*count)) != entry->checksum;
  }
  return true;
}

std::optional<std::size_t> ZipFileReader::readContent(const Entry& entry, std::span<char> content) const {
  unz64_file_pos position{entry.directoryOffset, entry.directoryIndex};
  if (unzGoToFilePos64(_archive->getHandle(), &position) != UNZ_OK) {
    return std::nullopt;
  }
  const auto blocks = _archive->openEntry(entry.method, entry.compressedSize);
  return blocks ? findCompressionMethod(entry.method)->decompress(*blocks, content) : std::nullopt;
}

}  // namespace vemo
