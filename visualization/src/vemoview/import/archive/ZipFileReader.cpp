#include "vemoview/import/archive/ArchiveFile.h"
#include "vemoview/import/archive/Compression.h"
#include "vemoview/import/archive/ContentPass.h"
#include "vemoview/import/archive/ZipDirectory.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <cerrno>
#include <fmt/format.h>
#include <system_error>
#include <utility>

namespace vemo {

namespace {

/// A bit of the flags that the format gives each entry.
constexpr unsigned FLAG_ENCRYPTED = 1;

/// Throws for a file that must not be opened as an archive.
void checkFile(const std::wstring& path) {
  struct stat status {};
  // The system would take the path up to the zero.
  const bool isPath = path.find(L'\0') == std::wstring::npos;
  if (!isPath || wideStat(path.c_str(), &status) != 0) {
    const int error = isPath ? errno : ENOENT;
    if (lum::io::openingStatus(error) == lum::io::FileIoStatus::NotFound) {
      throw FileNotFoundException("File does not exist");
    }
    throw IOException(std::generic_category().message(error));
  }
  if ((status.st_mode & S_IRUSR) == 0) {
    throw IOException("No read permission");
  }
  // Opening a pipe would block until there is a writer.
  if (!S_ISREG(status.st_mode)) {
    throw ZipException("Invalid zip file");
  }
}

bool isEncrypted(const ZipEntry& entry) {
  return (entry.flags & FLAG_ENCRYPTED) != 0;
}

/// Whether so few bytes of content may be followed by zeros up to the size: what is made of it takes
/// memory and time for all of it.
bool canBeFilled(std::size_t count, std::size_t size) {
  constexpr std::size_t SMALL = std::size_t{1} << 20U;
  constexpr std::size_t PER_BYTE = 4;
  return size <= SMALL + PER_BYTE * count;
}

}  // namespace

/// An open archive and its entries.
struct ZipFileReader::Archive {
  template <class Content>  // a path or bytes
  explicit Archive(const Content& content) : file(content), directory(readZipDirectory(file)) {
    sortEntries();
  }

  void sortEntries();
  const ZipEntry* find(const std::string& name) const;
  bool isSizePossible(const ZipEntry& entry) const;

  ArchiveFile file;
  /// Sorted by name, each name once.
  ZipDirectory directory;
  std::vector<std::string> duplicateNames;
};

void ZipFileReader::Archive::sortEntries() {
  auto& entries = directory.entries;
  // Of equal names the last in the archive is to stay: it comes first here.
  std::ranges::reverse(entries);
  std::ranges::stable_sort(entries, {}, &ZipEntry::name);
  for (std::size_t i = 1; i < entries.size(); ++i) {
    const std::string& name = entries[i].name;
    if (name == entries[i - 1].name && (duplicateNames.empty() || duplicateNames.back() != name)) {
      duplicateNames.push_back(name);
    }
  }
  const auto repeated =
      std::unique(entries.begin(), entries.end(),
                  [](const ZipEntry& left, const ZipEntry& right) { return left.name == right.name; });
  entries.erase(repeated, entries.end());
  entries.shrink_to_fit();
}

const ZipEntry* ZipFileReader::Archive::find(const std::string& name) const {
  const auto& entries = directory.entries;
  const auto found = std::ranges::lower_bound(entries, name, {}, &ZipEntry::name);
  return found == entries.end() || found->name != name ? nullptr : &*found;
}

bool ZipFileReader::Archive::isSizePossible(const ZipEntry& entry) const {
  if (isEncrypted(entry) || findCompressionMethod(entry.method) == nullptr ||
      entry.uncompressedSize > SIZE_LIMIT || entry.compressedSize > file.getSize()) {
    return false;
  }
  return entry.uncompressedSize <= std::max(SMALL_ENTRY_SIZE, entry.compressedSize * MAX_DEFLATE_RATIO);
}

ZipFileReader::ZipFileReader(const std::wstring& path)
    : _archive((checkFile(path), std::make_shared<const Archive>(path))) {}

ZipFileReader::ZipFileReader(std::span<const std::byte> bytes)
    : _archive(std::make_shared<const Archive>(bytes)) {}

std::uint64_t ZipFileReader::getFileSize() const {
  return _archive->file.getSize();
}

int ZipFileReader::getEntryCount() const {
  return static_cast<int>(_archive->directory.entries.size());
}

bool ZipFileReader::hasOtherInFront() const {
  return _archive->directory.hasOtherInFront;
}

bool ZipFileReader::isMiscounted() const {
  return _archive->directory.isMiscounted;
}

const std::vector<std::string>& ZipFileReader::getDuplicateNames() const {
  return _archive->duplicateNames;
}

std::string ZipFileReader::getEntryName(int index) const {
  const auto place = static_cast<std::size_t>(std::max(index, 0));
  return place < _archive->directory.entries.size() ? _archive->directory.entries[place].name : std::string();
}

int ZipFileReader::getSize(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  return entry != nullptr ? static_cast<int>(std::min<std::uint64_t>(entry->uncompressedSize, SIZE_LIMIT))
                          : -1;
}

std::uint64_t ZipFileReader::getCompressedSize(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  return entry != nullptr ? entry->compressedSize : 0;
}

std::uint32_t ZipFileReader::getChecksum(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  return entry != nullptr ? entry->checksum : 0;
}

bool ZipFileReader::isSizePossible(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  return entry != nullptr && _archive->isSizePossible(*entry);
}

std::string ZipFileReader::describeUnsupported(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  if (entry == nullptr) {
    return {};
  }
  if (isEncrypted(*entry)) {
    return "it is encrypted";
  }
  return findCompressionMethod(entry->method) == nullptr
             ? fmt::format("it is compressed by method {}, which is not supported", entry->method)
             : std::string();
}

bool ZipFileReader::hasOtherName(const std::string& name) const {
  const ZipEntry* const entry = _archive->find(name);
  return entry != nullptr && findContent(_archive->file, *entry) && !isNamedAlike(_archive->file, *entry);
}

bool ZipFileReader::read(const std::string& name, char* buffer, ContentFlaws* flaws,
                         const Convert& convert) const {
  const ZipEntry* const entry = _archive->find(name);
  if (entry == nullptr || !_archive->isSizePossible(*entry)) {
    return false;
  }
  const auto position = findContent(_archive->file, *entry);
  if (!position) {
    return false;
  }
  const std::span content(buffer, static_cast<std::size_t>(entry->uncompressedSize));
  ContentPass pass(content, convert);
  const auto count = findCompressionMethod(entry->method)
                         ->decompress({_archive->file, *position, entry->compressedSize}, content, pass);
  if (!count) {
    return false;
  }
  if (flaws != nullptr) {
    flaws->bytesRead = *count < content.size() ? count : std::nullopt;
  }
  if (!canBeFilled(*count, content.size())) {
    return false;
  }
  pass.finish(*count);
  if (flaws != nullptr) {
    flaws->isChecksumWrong = pass.getChecksum() != entry->checksum;
  }
  return true;
}

}  // namespace vemo
