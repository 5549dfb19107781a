#pragma once

#include "vemoview/import/archive/DecodedEntries.h"
#include "vemoview/import/archive/ReadingLimits.h"
#include <vemo/import/archive/Array_t.h>
#include <vemo/import/archive/ZipFileReader.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vemo {

/// The content of an archive's entries: blocks of bytes and arrays of numbers.
class ArchiveReader {
 public:
  explicit ArchiveReader(ZipFileReader archive);
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;
  virtual ~ArchiveReader() = default;

  const ZipFileReader& getArchive() const { return _archive; }
  ReadingLimits getLimits() const { return ReadingLimits::ofArchive(_archive.getFileSize(), _contentSize); }

  /// The whole content of an entry; the caller owns the block. Throws
  /// IOException when the entry is missing or cannot be read, or when more is
  /// read from the archive than it can hold. Content that is shorter than stated,
  /// or not that of its checksum, is reported.
  Array_t<unsigned char> readEntry(const std::string& entryName);

  /// An entry of big-endian 32-bit numbers, in the byte order of this machine;
  /// the caller owns the block. Throws IOException as readEntry does, and when
  /// the size (-1 for a missing entry) is not a multiple of 4.
  Array_t<int> readIntBuffer(const std::string& entryName);
  Array_t<float> readFloatBuffer(const std::string& entryName);

  /// What was made of the entries, for all items that name them.
  DecodedEntries& getDecoded() { return _decoded; }

  /// As readFloatBuffer, without reports.
  Array_t<float> loadFloats(const std::string& entryName);

  /// Reports what is wrong with the content of an entry that was read.
  void reportContent(const std::string& entryName);

  /// Before so many normals are computed, of faces with so many corners: throws IOException when
  /// they, and what was read, are more than the archive can hold, or out of proportion to its
  /// content.
  void countNormals(std::int64_t count, std::int64_t corners);

  /// Before the content of an entry that was read is used once more: throws IOException when that is out
  /// of proportion.
  void countCopy(const std::string& entryName);

  /// Before an array without values is made: throws IOException when there are too many.
  void countEmptyArray(const std::string& entryName, int components);

  /// Before an array is used: throws IOException when long names are used too often.
  void countArrayName(const std::string& entryName, const std::string& name);

  /// In all.
  std::uint64_t countBytesRead() const { return _bytesRead; }

  /// The entries that were never asked for, in ascending order of names.
  std::vector<std::string> getUnusedEntries() const;

 protected:
  /// Once nobody asks for entries any more, nor which were used.
  void forgetUses() { _used.clear(); }

 private:
  /// Of content that is used anyway.
  virtual void reportFlaws(const ZipFileReader::ContentFlaws& flaws, const std::string& entryName) = 0;

  /// Progress: so much content was read.
  virtual void noteBytesRead(std::uint64_t count) = 0;

  Array_t<unsigned char> loadEntry(const std::string& entryName, const ZipFileReader::Convert& convert);
  Array_t<unsigned char> loadWords(const std::string& entryName, const char* kind);
  void requireData(std::uint64_t bytes, const std::string& what, const std::string& entryName) const;
  void addCopy(std::uint64_t bytes, const std::string& what, const std::string& entryName);

  ZipFileReader _archive;
  /// Of all entries, as far as their sizes are possible.
  std::uint64_t _contentSize;
  std::uint64_t _bytesRead = 0;
  std::uint64_t _compressedBytesRead = 0;
  /// What was read or used again, and normals.
  std::uint64_t _copiedBytes = 0;
  std::uint64_t _normalBytes = 0;
  std::uint64_t _emptyArrayBytes = 0;
  std::uint64_t _longNameBytes = 0;
  /// Those asked for.
  std::map<std::string, ZipFileReader::ContentFlaws> _used;
  DecodedEntries _decoded{*this};
};

}  // namespace vemo
