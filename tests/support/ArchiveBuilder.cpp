#include "support/ArchiveBuilder.h"

#include <bit>
#include <fstream>
#include <stdexcept>
#include <utility>
#include <zlib.h>

namespace vemo {

namespace {

constexpr std::uint32_t LOCAL_HEADER = 0x04034b50;
constexpr std::uint32_t DIRECTORY_ENTRY = 0x02014b50;
constexpr std::uint32_t DIRECTORY_END = 0x06054b50;
constexpr std::uint32_t DIRECTORY_END_64 = 0x06064b50;
constexpr std::uint32_t DIRECTORY_LOCATOR_64 = 0x07064b50;
/// The date field of the first of January 1980.
constexpr std::uint16_t FIRST_DATE = 0x21;

using Bytes = std::vector<unsigned char>;

/// Appends a number, least significant byte first, as zip has it.
template <class T>
void put(Bytes& out, std::uint64_t value) {
  for (unsigned shift = 0; shift < 8 * sizeof(T); shift += 8) {
    out.push_back(static_cast<unsigned char>(value >> shift));
  }
}

Bytes deflated(const Bytes& content) {
  z_stream stream{};
  if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK) {
    throw std::runtime_error("cannot deflate");
  }
  Bytes out(deflateBound(&stream, content.size()));
  stream.next_in = const_cast<unsigned char*>(content.data());
  stream.avail_in = static_cast<uInt>(content.size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<uInt>(out.size());
  const int result = deflate(&stream, Z_FINISH);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  if (result != Z_STREAM_END) {
    throw std::runtime_error("cannot deflate");
  }
  return out;
}

/// The fields that the local header and the directory have in common.
void putCommonFields(Bytes& out, const ArchiveBuilder::Entry& entry) {
  put<std::uint16_t>(out, 20);  // the version needed to read it
  put<std::uint16_t>(out, entry.flags);
  put<std::uint16_t>(out, entry.method);
  put<std::uint16_t>(out, 0);  // time
  put<std::uint16_t>(out, FIRST_DATE);
  put<std::uint32_t>(out, entry.crc);
  put<std::uint32_t>(out, entry.compressedSize);
  put<std::uint32_t>(out, entry.uncompressedSize);
  put<std::uint16_t>(out, entry.name.size());
  put<std::uint16_t>(out, 0);  // extra field
}

void putLocalEntry(Bytes& out, const ArchiveBuilder::Entry& entry) {
  put<std::uint32_t>(out, LOCAL_HEADER);
  putCommonFields(out, entry);
  out.insert(out.end(), entry.name.begin(), entry.name.end());
  out.insert(out.end(), entry.data.begin(), entry.data.end());
}

void putDirectoryEntry(Bytes& out, const ArchiveBuilder::Entry& entry, std::uint64_t offset) {
  put<std::uint32_t>(out, DIRECTORY_ENTRY);
  put<std::uint16_t>(out, 20);  // the version that made it
  putCommonFields(out, entry);
  put<std::uint16_t>(out, 0);  // comment
  put<std::uint16_t>(out, 0);  // disk
  put<std::uint16_t>(out, 0);  // internal attributes
  put<std::uint32_t>(out, 0);  // external attributes
  put<std::uint32_t>(out, offset);
  out.insert(out.end(), entry.name.begin(), entry.name.end());
}

void putDirectoryEnd64(Bytes& out, std::uint64_t count, std::uint64_t start, std::uint64_t size) {
  const std::uint64_t position = out.size();
  put<std::uint32_t>(out, DIRECTORY_END_64);
  put<std::uint64_t>(out, 44);  // bytes that follow in this record
  put<std::uint16_t>(out, 45);
  put<std::uint16_t>(out, 45);
  put<std::uint32_t>(out, 0);
  put<std::uint32_t>(out, 0);
  put<std::uint64_t>(out, count);
  put<std::uint64_t>(out, count);
  put<std::uint64_t>(out, size);
  put<std::uint64_t>(out, start);
  put<std::uint32_t>(out, DIRECTORY_LOCATOR_64);
  put<std::uint32_t>(out, 0);
  put<std::uint64_t>(out, position);
  put<std::uint32_t>(out, 1);
}

/// `start` and `size` are the directory's. More entries than 16 bits count are
/// counted in the 64-bit record in front.
void putDirectoryEnd(Bytes& out, std::uint64_t count, std::uint64_t start, std::uint64_t size) {
  const bool large = count >= 0xffff;
  if (large) {
    putDirectoryEnd64(out, count, start, size);
  }
  put<std::uint32_t>(out, DIRECTORY_END);
  put<std::uint32_t>(out, 0);  // disks
  put<std::uint16_t>(out, large ? 0xffff : count);
  put<std::uint16_t>(out, large ? 0xffff : count);
  put<std::uint32_t>(out, large ? 0xffffffff : size);
  put<std::uint32_t>(out, large ? 0xffffffff : start);
  put<std::uint16_t>(out, 0);  // comment
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
    const auto bits = std::bit_cast<std::uint32_t>(value);
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
  entry.crc =
      static_cast<std::uint32_t>(crc32(0, source.content.data(), static_cast<uInt>(source.content.size())));
  entry.compressedSize = static_cast<std::uint32_t>(entry.data.size());
  entry.uncompressedSize = static_cast<std::uint32_t>(source.content.size());
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
