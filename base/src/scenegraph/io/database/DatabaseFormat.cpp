#include "scenegraph/io/database/DatabaseFormat.h"

#include "base/Utf8.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/FieldReader.h"
#include "scenegraph/io/codec/GraphFormat.h"
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace lum::io {

namespace {

using nlohmann::json;

constexpr std::string_view FORMAT = "scene-graph database";
static_assert(SDBWriter::SIGNATURE.find(FORMAT) != std::string_view::npos);

/// Three numbers of strings, and a graph of one node: its size, two counts of
/// nodes, and what each node has at least.
constexpr std::size_t MIN_RECORD_BYTES = 5 + MIN_NODE_BYTES;

/// What is read into memory before it is known to be an index.
constexpr std::uint64_t MAX_UNKNOWN_BYTES = std::uint64_t{64} << 20U;

/// Zeros in an index, in whole pages: a file may have any number of them that take no place on
/// a disk.
constexpr std::uint64_t MAX_ZEROS = std::uint64_t{64} << 20U;
constexpr std::size_t PAGE_BYTES = 4096;

[[noreturn]] void refuse(const std::string& text) {
  throw FileError(FileIoStatus::UnsupportedFormat, text);
}

[[noreturn]] void failDamaged(const std::string& cause) {
  throw FileError(FileIoStatus::ReadError, cause);
}

std::uint64_t numberOf(const json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end() || !found->is_number_unsigned()) {
    failDamaged(fmt::format("The header has no number \"{}\"", key));
  }
  return found->get<std::uint64_t>();
}

std::uint64_t hashFrom(const json& object) {
  const auto found = object.find("hash");
  std::uint64_t hash = 0;
  if (found != object.end() && found->is_string()) {
    const auto& text = found->get_ref<const std::string&>();
    const char* end = text.data() + text.size();
    // Only as it is written: a wrong bit turns a small letter into a capital.
    if (std::from_chars(text.data(), end, hash, 16).ptr == end && text == fmt::format("{:016x}", hash)) {
      return hash;
    }
  }
  failDamaged("The header has no hash of the index");
}

json parseHeader(InputSource& source) {
  const std::string line = source.read(std::min<std::uint64_t>(source.getLeft(), HEADER_SIZE));
  const FileIoStatus status =
      line.starts_with(SDBWriter::SIGNATURE) ? FileIoStatus::ReadError : FileIoStatus::UnsupportedFormat;
  if (line.size() < HEADER_SIZE) {
    throw FileError(status,
                    fmt::format("It is too short: {} bytes, a header has {}", line.size(), HEADER_SIZE));
  }
  // The parser takes a zero byte for the end of the text.
  const bool isWhole = line.front() == SDBWriter::SIGNATURE.front() && line.back() == '\n' &&
                       line.find('\0') == std::string::npos;
  json header = isWhole ? json::parse(line, nullptr, false) : json();
  if (!header.is_object()) {
    throw FileError(status, "It does not begin with a header");
  }
  return header;
}

void requireEndOfFile(const IndexLocation& index, std::uint64_t fileSize) {
  const std::uint64_t end = index.offset + index.size;
  const bool isSensible = index.offset >= HEADER_SIZE && end >= index.offset;
  if (isSensible && end > fileSize) {
    failDamaged(fmt::format("The file is truncated: it has {} of {} bytes", fileSize, end));
  }
  if (!isSensible || end != fileSize) {
    failDamaged(fmt::format("The index, {} bytes at byte {}, is not at the end of the file of {} bytes",
                            index.size, index.offset, fileSize));
  }
}

[[noreturn]] void failIndex(const std::string& cause) {
  failDamaged("The index is damaged: " + cause);
}

void requireHash(std::uint64_t hash, const IndexLocation& index) {
  if (hash != index.hash) {
    failIndex("hash mismatch");
  }
}

/// The bytes in those pages that have nothing but zeros.
std::uint64_t countZeros(std::string_view bytes) {
  std::uint64_t zeros = 0;
  for (; bytes.size() >= PAGE_BYTES; bytes.remove_prefix(PAGE_BYTES)) {
    const bool isZero =
        bytes.front() == '\0' && std::memcmp(bytes.data(), bytes.data() + 1, PAGE_BYTES - 1) == 0;
    zeros += isZero ? PAGE_BYTES : 0;
  }
  return zeros;
}

/// Before it takes its size in memory.
void checkLargeIndex(InputSource& source, const IndexLocation& index) {
  source.seek(index.offset);
  std::uint64_t zeros = 0;
  const auto hash = hashNext(source, index.size, [&zeros](std::string_view block) {
    zeros += countZeros(block);
    return zeros <= MAX_ZEROS;
  });
  if (!hash) {
    failIndex(fmt::format("of its {} bytes, more than {} are zeros", index.size, MAX_ZEROS));
  }
  requireHash(*hash, index);
}

}  // namespace

std::string makeHeader(const IndexLocation& index) {
  std::string line =
      fmt::format(R"({}, "version": {}, "index": {{"offset": {}, "size": {}, "hash": "{:016x}"}}}})",
                  SDBWriter::SIGNATURE, index.version, index.offset, index.size, index.hash);
  line.resize(HEADER_SIZE - 1, ' ');
  return line + '\n';
}

IndexLocation readHeader(InputSource& source) {
  const json header = parseHeader(source);
  const auto format = header.find("format");
  if (format == header.end() || *format != FORMAT) {
    refuse(fmt::format("Its header does not say that it is a {}", FORMAT));
  }
  const std::uint64_t version = numberOf(header, "version");
  if (version < 1 || version > FORMAT_VERSION) {
    refuse(fmt::format("It is of version {}; versions up to {} can be read", version, FORMAT_VERSION));
  }
  const auto index = header.find("index");
  if (index == header.end() || !index->is_object()) {
    failDamaged("The header does not say where the index is");
  }
  const IndexLocation location{numberOf(*index, "offset"), numberOf(*index, "size"), hashFrom(*index),
                               version};
  requireEndOfFile(location, source.getSize());
  return location;
}

std::size_t paddingAt(std::uint64_t position) {
  return static_cast<std::size_t>((CHUNK_ALIGNMENT - position % CHUNK_ALIGNMENT) % CHUNK_ALIGNMENT);
}

DatabaseIndex::DatabaseIndex(InputSource& source) {
  const IndexLocation location = readHeader(source);
  if (location.size > MAX_UNKNOWN_BYTES) {
    checkLargeIndex(source, location);
  }
  source.seek(location.offset);
  _bytes = source.read(location.size);
  requireHash(hashOf(_bytes), location);
  _budget.allow(_bytes.size());
  ByteReader in(_bytes);
  _tables.read(in, location.version >= FIRST_VERSION_WITH_LISTS);
  readOffsets(in, location.offset);
  readRecords(in);
}

void DatabaseIndex::readOffsets(ByteReader& in, std::uint64_t end) {
  std::uint64_t position = HEADER_SIZE;
  for (const ChunkRow& row : _tables.getChunks()) {
    position += paddingAt(position);
    const std::uint64_t gap = in.number("position of an array");
    // The chunks must fit before the index.
    if (position > end || gap > (end - position) / CHUNK_ALIGNMENT ||
        row.bytes() > end - position - gap * CHUNK_ALIGNMENT) {
      failDamaged(fmt::format("Array {} \"{}\" of {} bytes overlaps the index", _offsets.size(),
                              vemo::shortName(_tables.getName(row)), row.bytes()));
    }
    _offsets.push_back(position + gap * CHUNK_ALIGNMENT);
    position = _offsets.back() + row.bytes();
  }
}

void DatabaseIndex::readRecords(ByteReader& in) {
  std::vector<std::size_t> noChunks;
  FieldReader values(in, _tables, _budget, noChunks);
  std::size_t count = in.count("records", MIN_RECORD_BYTES);
  _records.reserve(count);
  for (; count > 0; --count) {
    Record record{values.readString(), values.readString(), values.readString(), {}};
    record.graph = in.text("graph of a record");
    _records.push_back(record);
  }
  if (in.left() != 0) {
    failDamaged(fmt::format("{} bytes follow the last record", in.left()));
  }
}

}  // namespace lum::io
