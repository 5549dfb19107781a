#include "vemoview/import/archive/ArchiveReader.h"

#include "base/HugePages.h"
#include "scenegraph/io/bytes/ContentBudget.h"
#include "vemoview/import/Failure.h"
#include "vemoview/import/archive/ByteOrder.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <memory>
#include <span>
#include <utility>

namespace vemo {

namespace {

/// @param cause if it is known
[[noreturn]] void failIncomplete(const std::string& entryName, const std::string& cause = {}) {
  IOException exception("Could not completely read entry '" + entryName + "'<br>Your file may be corrupt.");
  exception.setEntry(entryName);
  exception.setCause(cause);
  throw exception;
}

/// Empty if the content is not what is short.
std::string describeShort(const ZipFileReader::ContentFlaws& flaws, std::uint64_t size) {
  return flaws.bytesRead ? fmt::format("it states {} bytes but has {}", size, *flaws.bytesRead)
                         : std::string();
}

std::string failureToRead(const std::string& entryName) {
  return "Entry '" + entryName + "' cannot be read";
}

/// @param what fails
[[noreturn]] void failTooMuchData(const std::string& what, const std::string& entryName) {
  failAt<IOException>(what +
                          ": the scene asks for more data than an archive of this size can hold.<br>Your "
                          "file may be corrupt.",
                      entryName);
}

std::uint64_t contentSizeOf(const ZipFileReader& archive) {
  std::uint64_t size = 0;
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    const std::string name = archive.getEntryName(i);
    size += archive.isSizePossible(name) ? static_cast<std::uint64_t>(archive.getSize(name)) : 0;
  }
  return size;
}

}  // namespace

ArchiveReader::ArchiveReader(ZipFileReader archive)
    : _archive(std::move(archive)), _contentSize(contentSizeOf(_archive)) {}

Array_t<unsigned char> ArchiveReader::loadEntry(const std::string& entryName,
                                                const ZipFileReader::Convert& convert) {
  const int size = _archive.getSize(entryName);
  if (size < 0) {
    failAt<IOException>("Requested non-existent entry '" + entryName + "'.<br>Your file may be corrupt.",
                        entryName);
  }
  const auto [used, isFirstUse] = _used.try_emplace(entryName);
  ZipFileReader::ContentFlaws& flaws = used->second;
  const std::string failure = failureToRead(entryName);
  if (const std::string cause = _archive.describeUnsupported(entryName); !cause.empty()) {
    failIncomplete(entryName, cause);
  }
  if (!_archive.isSizePossible(entryName)) {
    failIncomplete(entryName);
  }
  const auto bytes = static_cast<std::uint64_t>(size);
  const std::uint64_t compressedBytes = _archive.getCompressedSize(entryName);
  requireData(bytes, failure, entryName);
  if (_compressedBytesRead + compressedBytes > getLimits().compressedBytes) {
    failTooMuchData(failure, entryName);
  }
  if (!isFirstUse) {
    addCopy(bytes, failure, entryName);
  }
  _bytesRead += bytes;
  _compressedBytesRead += compressedBytes;
  // Not set to zero beforehand: the archive does so with what it does not fill.
  auto block = std::make_unique_for_overwrite<unsigned char[]>(static_cast<std::size_t>(size));
  OS::preferHugePages(block.get(), static_cast<std::size_t>(size));
  flaws = {};
  try {
    if (!_archive.read(entryName, reinterpret_cast<char*>(block.get()), &flaws, convert)) {
      failIncomplete(entryName, describeShort(flaws, bytes));
    }
  } catch (UnreadableException& exception) {
    exception.setEntry(entryName);
    throw;
  }
  noteBytesRead(bytes);
  return {block.release(), size};
}

void ArchiveReader::reportContent(const std::string& entryName) {
  reportFlaws(_used[entryName], entryName);
}

Array_t<unsigned char> ArchiveReader::readEntry(const std::string& entryName) {
  ArrayOwner<unsigned char> bytes(loadEntry(entryName, nullptr));
  reportContent(entryName);
  return bytes.release();
}

std::vector<std::string> ArchiveReader::getUnusedEntries() const {
  std::vector<std::string> unused;
  for (int i = 0; i < _archive.getEntryCount(); ++i) {
    const std::string name = _archive.getEntryName(i);
    const bool isFolder = name.ends_with('/') && _archive.getSize(name) == 0;
    if (!isFolder && !_used.contains(name)) {
      unused.push_back(name);
    }
  }
  return unused;
}

void ArchiveReader::countNormals(std::int64_t count, std::int64_t corners) {
  constexpr std::uint64_t BYTES = 3 * sizeof(float);
  constexpr std::uint64_t BYTES_OF_CORNER = sizeof(std::int32_t);
  const std::string failure = "Normals cannot be computed";
  const std::uint64_t bytes = BYTES * static_cast<std::uint64_t>(count);
  requireData(bytes, failure, "");
  addCopy(bytes + BYTES_OF_CORNER * static_cast<std::uint64_t>(corners), failure, "");
  _normalBytes += bytes;
}

void ArchiveReader::countCopy(const std::string& entryName) {
  addCopy(static_cast<std::uint64_t>(_archive.getSize(entryName)), failureToRead(entryName), entryName);
}

void ArchiveReader::countEmptyArray(const std::string& entryName, int components) {
  const std::uint64_t bytes =
      lum::io::ContentBudget::bytesOfEmptyArray(static_cast<std::uint64_t>(components));
  if (_emptyArrayBytes + bytes > ReadingLimits::BYTES_OF_EMPTY_ARRAYS) {
    failAt<IOException>(failureToRead(entryName) + ": the scene has too many arrays without values.",
                        entryName);
  }
  _emptyArrayBytes += bytes;
}

void ArchiveReader::countArrayName(const std::string& entryName, const std::string& name) {
  const std::uint64_t bytes = name.size() - std::min<std::uint64_t>(name.size(), ReadingLimits::LONG_NAME);
  if (_longNameBytes + bytes > ReadingLimits::BYTES_OF_LONG_NAMES) {
    failAt<IOException>(failureToRead(entryName) + ": too many arrays have very long names.", entryName);
  }
  _longNameBytes += bytes;
}

// What is refused is not counted: it does not keep others from being read.

/// @param what fails if there is too much
void ArchiveReader::requireData(std::uint64_t bytes, const std::string& what,
                                const std::string& entryName) const {
  if (_bytesRead + _normalBytes + bytes > getLimits().bytes) {
    failTooMuchData(what, entryName);
  }
}

void ArchiveReader::addCopy(std::uint64_t bytes, const std::string& what, const std::string& entryName) {
  if (_copiedBytes + bytes > getLimits().copies) {
    failAt<IOException>(what +
                            ": so many items share data that the scene would take memory or time "
                            "out of proportion to its content.",
                        entryName);
  }
  _copiedBytes += bytes;
}

/// The bytes of an entry of words, converted; `kind` is the user's word for them.
Array_t<unsigned char> ArchiveReader::loadWords(const std::string& entryName, const char* kind) {
  if (_archive.getSize(entryName) % 4 != 0) {
    failAt<IOException>(std::string("Bad size for ") + kind + " buffer;  not a multiple of 4", entryName);
  }
  return loadEntry(entryName, [](std::span<char> block) {
    convertWords({reinterpret_cast<unsigned char*>(block.data()), block.size()});
  });
}

Array_t<int> ArchiveReader::readIntBuffer(const std::string& entryName) {
  const Array_t<unsigned char> bytes = loadWords(entryName, "integer");
  ArrayOwner<int> values({reinterpret_cast<int*>(bytes.data), bytes.count / 4});
  reportContent(entryName);
  return values.release();
}

Array_t<float> ArchiveReader::loadFloats(const std::string& entryName) {
  const Array_t<unsigned char> bytes = loadWords(entryName, "float");
  return {reinterpret_cast<float*>(bytes.data), bytes.count / 4};
}

Array_t<float> ArchiveReader::readFloatBuffer(const std::string& entryName) {
  ArrayOwner<float> values(loadFloats(entryName));
  reportContent(entryName);
  return values.release();
}

}  // namespace vemo
