#include "support/ArchiveBuilder.h"

#include <bit>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <zlib.h>

namespace vemo {

namespace {

using Bytes = std::vector<unsigned char>;
using U16 = std::uint16_t;
using U32 = std::uint32_t;
using U64 = std::uint64_t;

constexpr U32 LOCAL_HEADER = 0x04034b50;
constexpr U32 DIRECTORY_ENTRY = 0x02014b50;
constexpr U32 DIRECTORY_END = 0x06054b50;
constexpr U32 DIRECTORY_END_64 = 0x06064b50;
constexpr U32 DIRECTORY_LOCATOR_64 = 0x07064b50;
/// The date field of the first of January 1980.
constexpr U16 FIRST_DATE = 0x21;

/// Appends numbers as zip has them, least significant byte first.
template <class... T>
void put(Bytes& out, T... values) {
  const auto putOne = [&out](auto value) {
    for (unsigned shift = 0; shift < 8 * sizeof value; shift += 8) {
      out.push_back(static_cast<unsigned char>(value >> shift));
    }
  };
  (putOne(values), ...);
}

Bytes deflated(const Bytes& content) {
  uLongf size = compressBound(content.size());
  Bytes out(size);
  if (compress(out.data(), &size, content.data(), content.size()) != Z_OK) {
    throw std::runtime_error("cannot deflate");
  }
  // Between the header and the checksum of zlib's own format.
  return {out.begin() + 2, out.begin() + static_cast<std::ptrdiff_t>(size - 4)};
}

/// The fields that the local header and the directory have in common.
void putCommonFields(Bytes& out, const ArchiveBuilder::Entry& entry) {
  const U16 neededVersion = 20, time = 0, extraSize = 0;
  put(out, neededVersion, entry.flags, entry.method, time, FIRST_DATE, entry.crc, entry.compressedSize,
      entry.uncompressedSize, U16(entry.name.size()), extraSize);
}

void putLocalEntry(Bytes& out, const ArchiveBuilder::Entry& entry) {
  put(out, LOCAL_HEADER);
  putCommonFields(out, entry);
  out.insert(out.end(), entry.name.begin(), entry.name.end());
  out.insert(out.end(), entry.data.begin(), entry.data.end());
}

void putDirectoryEntry(Bytes& out, const ArchiveBuilder::Entry& entry, U64 offset) {
  const U16 version = 20, commentSize = 0, disk = 0, internalAttributes = 0;
  put(out, DIRECTORY_ENTRY, version);
  putCommonFields(out, entry);
  put(out, commentSize, disk, internalAttributes, U32(0) /* external attributes */, U32(offset));
  out.insert(out.end(), entry.name.begin(), entry.name.end());
}

/// `start` and `size` are the directory's. More entries than 16 bits count are
/// counted in the 64-bit record in front.
void putDirectoryEnd(Bytes& out, U64 count, U64 start, U64 size) {
  const bool isLarge = count >= 0xffff;
  if (isLarge) {
    const U64 position = out.size(), following = 44;
    const U16 version = 45;
    const U32 disk = 0, disks = 1;
    put(out, DIRECTORY_END_64, following, version, version, disk, disk, count, count, size, start);
    put(out, DIRECTORY_LOCATOR_64, disk, position, disks);
  }
  const U16 disk = 0, commentSize = 0, shortCount = isLarge ? U16(0xffff) : U16(count);
  put(out, DIRECTORY_END, disk, disk, shortCount, shortCount, isLarge ? U32(-1) : U32(size),
      isLarge ? U32(-1) : U32(start), commentSize);
}

template <class T>
std::vector<T> numbersIn(std::istream& words) {
  std::vector<T> numbers;
  for (std::string word; words >> word;) {
    if constexpr (std::is_integral_v<T>) {
      numbers.push_back(static_cast<T>(std::stoll(word)));
    } else {
      numbers.push_back(std::strtof(word.c_str(), nullptr));
    }
  }
  return numbers;
}

}  // namespace

ArchiveBuilder& ArchiveBuilder::text(const std::string& name, std::string_view content) {
  return bytes(name, {content.begin(), content.end()});
}

ArchiveBuilder& ArchiveBuilder::bytes(const std::string& name, std::vector<unsigned char> content) {
  _sources.push_back({name, std::move(content), {}});
  return *this;
}

template <class T>
ArchiveBuilder& ArchiveBuilder::words(const std::string& name, const std::vector<T>& values) {
  Bytes content;
  for (const T value : values) {
    const auto bits = std::bit_cast<U32>(value);
    for (const int shift : {24, 16, 8, 0}) {
      content.push_back(static_cast<unsigned char>(bits >> shift));
    }
  }
  return bytes(name, std::move(content));
}

ArchiveBuilder& ArchiveBuilder::ints(const std::string& name, const std::vector<int>& values) {
  return words(name, values);
}

ArchiveBuilder& ArchiveBuilder::floats(const std::string& name, const std::vector<float>& values) {
  return words(name, values);
}

bool ArchiveBuilder::add(const std::string& line) {
  std::istringstream words(line);
  std::string kind;
  std::string name;
  words >> kind >> name;
  if (kind == "@floats") {
    floats(name, numbersIn<float>(words));
  } else if (kind == "@ints") {
    ints(name, numbersIn<int>(words));
  } else if (kind == "@bytes") {
    bytes(name, numbersIn<unsigned char>(words));
  } else if (kind == "@text") {
    bytes(name, {std::istream_iterator<char>(words), {}});
  } else {
    return false;
  }
  return true;
}

ArchiveBuilder& ArchiveBuilder::stored() {
  _stored = true;
  return *this;
}

ArchiveBuilder& ArchiveBuilder::forge(std::function<void(Entry&)> forgery) {
  _sources.back().forgery = std::move(forgery);
  return *this;
}

ArchiveBuilder& ArchiveBuilder::claimEntryCount(std::uint64_t count) {
  _claimedCount = count;
  return *this;
}

ArchiveBuilder::Entry ArchiveBuilder::makeEntry(const Source& source) const {
  Entry entry;
  entry.name = source.name;
  entry.data = _stored ? source.content : deflated(source.content);
  entry.method = _stored ? 0 : Z_DEFLATED;
  entry.crc = static_cast<U32>(crc32(0, source.content.data(), static_cast<uInt>(source.content.size())));
  entry.compressedSize = static_cast<U32>(entry.data.size());
  entry.uncompressedSize = static_cast<U32>(source.content.size());
  if (source.forgery) {
    source.forgery(entry);
  }
  return entry;
}

std::vector<unsigned char> ArchiveBuilder::build() const {
  Bytes out;
  Bytes directory;
  for (const Source& source : _sources) {
    const Entry entry = makeEntry(source);
    putDirectoryEntry(directory, entry, out.size());
    putLocalEntry(out, entry);
  }
  const std::uint64_t start = out.size();
  out.insert(out.end(), directory.begin(), directory.end());
  putDirectoryEnd(out, _claimedCount.value_or(_sources.size()), start, directory.size());
  return out;
}

void ArchiveBuilder::write(const std::filesystem::path& path) const {
  const Bytes archive = build();
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(archive.data()), static_cast<std::streamsize>(archive.size()));
  file.close();
  if (!file) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

}  // namespace vemo
