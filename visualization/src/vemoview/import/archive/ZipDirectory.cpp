#include "vemoview/import/archive/ZipDirectory.h"

#include <vemo/import/Exception.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>

namespace vemo {

namespace {

// Positions are those of the records' fields, from the signature on.
namespace local {
constexpr std::string_view SIGNATURE = "PK\3\4";
constexpr std::size_t FLAGS = 6;
constexpr std::size_t METHOD = 8;
constexpr std::size_t CHECKSUM = 14;
constexpr std::size_t COMPRESSED_SIZE = 18;
constexpr std::size_t UNCOMPRESSED_SIZE = 22;
constexpr std::size_t NAME_LENGTH = 26;
constexpr std::size_t EXTRA_LENGTH = 28;
constexpr std::size_t SIZE = 30;
}  // namespace local

namespace directory {
constexpr std::string_view SIGNATURE = "PK\1\2";
constexpr std::size_t FLAGS = 8;
constexpr std::size_t METHOD = 10;
constexpr std::size_t CHECKSUM = 16;
constexpr std::size_t COMPRESSED_SIZE = 20;
constexpr std::size_t UNCOMPRESSED_SIZE = 24;
constexpr std::size_t NAME_LENGTH = 28;
constexpr std::size_t EXTRA_LENGTH = 30;
constexpr std::size_t COMMENT_LENGTH = 32;
constexpr std::size_t LOCAL_HEADER = 42;
constexpr std::size_t SIZE = 46;
}  // namespace directory

namespace end {
constexpr std::string_view SIGNATURE = "PK\5\6";
constexpr std::size_t DISK = 4;
constexpr std::size_t FIRST_DISK = 6;
constexpr std::size_t COUNT_ON_DISK = 8;
constexpr std::size_t COUNT = 10;
constexpr std::size_t DIRECTORY_SIZE = 12;
constexpr std::size_t DIRECTORY_POSITION = 16;
constexpr std::size_t SIZE = 22;
}  // namespace end

namespace end64 {
constexpr std::string_view SIGNATURE = "PK\6\6";
constexpr std::size_t DISK = 16;
constexpr std::size_t FIRST_DISK = 20;
constexpr std::size_t COUNT_ON_DISK = 24;
constexpr std::size_t COUNT = 32;
constexpr std::size_t DIRECTORY_SIZE = 40;
constexpr std::size_t DIRECTORY_POSITION = 48;
constexpr std::size_t SIZE = 56;
}  // namespace end64

/// In front of the end record, it says where the 64-bit one is.
namespace locator64 {
constexpr std::string_view SIGNATURE = "PK\6\7";
constexpr std::size_t DISK = 4;
constexpr std::size_t END_POSITION = 8;
constexpr std::size_t DISK_COUNT = 16;
constexpr std::size_t SIZE = 20;
}  // namespace locator64

constexpr std::size_t MAX_COMMENT_BYTES = 0xffff;
/// In place of a number that an extra field gives with 64 bits.
constexpr std::uint32_t IN_EXTRA_FIELD = 0xffffffff;
constexpr std::uint16_t EXTRA_FIELD_64 = 1;
/// The local header has zeros: checksum and sizes follow the content.
constexpr std::uint16_t FLAG_SIZES_FOLLOW = 8;

[[noreturn]] void failInvalid() {
  throw ZipException("Invalid zip file");
}

/// A number with its least significant byte first, from bytes that hold it.
template <class T>
T number(std::string_view bytes, std::size_t position) {
  T value = 0;
  for (std::size_t i = sizeof(T); i-- > 0;) {
    value = static_cast<T>(value << 8U | static_cast<unsigned char>(bytes[position + i]));
  }
  return value;
}
constexpr auto number16 = number<std::uint16_t>;
constexpr auto number32 = number<std::uint32_t>;
constexpr auto number64 = number<std::uint64_t>;

template <std::size_t SIZE>
std::optional<std::array<char, SIZE>> readRecord(const ArchiveFile& file, std::uint64_t position,
                                                 std::string_view signature) {
  std::array<char, SIZE> record;
  if (!file.read(record, position) || !std::string_view(record.data(), SIZE).starts_with(signature)) {
    return std::nullopt;
  }
  return record;
}

template <std::size_t SIZE>
std::string_view view(const std::array<char, SIZE>& record) {
  return {record.data(), record.size()};
}

/// What the end record says of the directory.
struct DirectoryPlace {
  std::uint64_t count;
  std::uint64_t size;
  /// As stated, from the start of the archive.
  std::uint64_t position;
  /// In the file, where whatever stands in front of the archive counts.
  std::uint64_t end;

  std::uint64_t start() const { return end - size; }
  std::uint64_t bytesInFront() const { return start() - position; }
};

bool isOneDisk(std::initializer_list<std::uint64_t> disks) {
  return std::ranges::all_of(disks, [](std::uint64_t disk) { return disk == 0; });
}

/// The last signature counts, as long as something stands in front of it.
std::uint64_t findEndRecord(const ArchiveFile& file) {
  const std::uint64_t size = std::min<std::uint64_t>(file.getSize(), end::SIZE + MAX_COMMENT_BYTES);
  std::string tail(static_cast<std::size_t>(size), '\0');
  if (!file.read(tail, file.getSize() - size)) {
    failInvalid();
  }
  const std::size_t found = tail.rfind(end::SIGNATURE);
  const std::uint64_t position = file.getSize() - size + found;
  if (found == std::string::npos || position == 0) {
    failInvalid();
  }
  return position;
}

/// Nothing when the archive has only the short end record.
std::optional<DirectoryPlace> findPlace64(const ArchiveFile& file, std::uint64_t endPosition) {
  if (endPosition < locator64::SIZE) {
    return std::nullopt;
  }
  const auto locator = readRecord<locator64::SIZE>(file, endPosition - locator64::SIZE, locator64::SIGNATURE);
  if (!locator || number32(view(*locator), locator64::DISK) != 0 ||
      number32(view(*locator), locator64::DISK_COUNT) != 1) {
    return std::nullopt;
  }
  const std::uint64_t position = number64(view(*locator), locator64::END_POSITION);
  const auto record = readRecord<end64::SIZE>(file, position, end64::SIGNATURE);
  if (!record) {
    return std::nullopt;
  }
  const std::string_view fields = view(*record);
  if (!isOneDisk({number32(fields, end64::DISK), number32(fields, end64::FIRST_DISK)}) ||
      number64(fields, end64::COUNT_ON_DISK) != number64(fields, end64::COUNT)) {
    failInvalid();
  }
  return DirectoryPlace{number64(fields, end64::COUNT), number64(fields, end64::DIRECTORY_SIZE),
                        number64(fields, end64::DIRECTORY_POSITION), position};
}

DirectoryPlace findPlace32(const ArchiveFile& file, std::uint64_t position) {
  const auto record = readRecord<end::SIZE>(file, position, end::SIGNATURE);
  if (!record) {
    failInvalid();
  }
  const std::string_view fields = view(*record);
  if (!isOneDisk({number16(fields, end::DISK), number16(fields, end::FIRST_DISK)}) ||
      number16(fields, end::COUNT_ON_DISK) != number16(fields, end::COUNT)) {
    failInvalid();
  }
  return {number16(fields, end::COUNT), number32(fields, end::DIRECTORY_SIZE),
          number32(fields, end::DIRECTORY_POSITION), position};
}

DirectoryPlace findDirectory(const ArchiveFile& file) {
  const std::uint64_t endPosition = findEndRecord(file);
  const auto place64 = findPlace64(file, endPosition);
  const DirectoryPlace place = place64 ? *place64 : findPlace32(file, endPosition);
  if (place.size > place.end || place.position > place.start()) {
    failInvalid();
  }
  return place;
}

/// Takes the 64-bit numbers that an entry's extra field has for those that do
/// not fit into its record. Other extra fields, and damaged ones, are ignored.
void readExtraFields(std::string_view fields, std::initializer_list<std::uint64_t*> numbers) {
  constexpr std::size_t HEAD = 4;
  while (fields.size() >= HEAD) {
    const std::size_t size = std::min<std::size_t>(number16(fields, 2), fields.size() - HEAD);
    std::string_view content = fields.substr(HEAD, size);
    for (std::uint64_t* const value : numbers) {
      if (number16(fields, 0) == EXTRA_FIELD_64 && *value == IN_EXTRA_FIELD &&
          content.size() >= sizeof *value) {
        *value = number64(content, 0);
        content.remove_prefix(sizeof *value);
      }
    }
    fields.remove_prefix(HEAD + size);
  }
}

/// The bytes of the directory, of which only a part is in memory: what the archive says of
/// their number may be wrong by far.
class DirectoryBytes {
 public:
  DirectoryBytes(const ArchiveFile& file, std::uint64_t begin, std::uint64_t end)
      : _file(file), _position(begin), _end(end) {}

  /// Those not taken yet: enough for an entry, or all that are left.
  std::string_view& rest() {
    if (_rest.size() < MAX_ENTRY_BYTES && _position < _end) {
      readOn();
    }
    return _rest;
  }

 private:
  static constexpr std::size_t MAX_ENTRY_BYTES = directory::SIZE + std::size_t{3} * 0xffff;
  static constexpr std::size_t BLOCK = std::size_t{1} << 20U;

  void readOn() {
    const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(BLOCK, _end - _position));
    std::string bytes(_rest);
    bytes.resize(bytes.size() + size);
    if (!_file.read(std::span(bytes).last(size), _position)) {
      failInvalid();
    }
    _position += size;
    _bytes = std::move(bytes);
    _rest = _bytes;
  }

  const ArchiveFile& _file;
  std::uint64_t _position;
  std::uint64_t _end;
  std::string _bytes;
  std::string_view _rest;
};

/// Takes the first entry off the directory's bytes.
ZipEntry takeEntry(std::string_view& bytes, std::uint64_t bytesInFront) {
  if (bytes.size() < directory::SIZE || !bytes.starts_with(directory::SIGNATURE)) {
    failInvalid();
  }
  const std::size_t nameLength = number16(bytes, directory::NAME_LENGTH);
  const std::size_t extraLength = number16(bytes, directory::EXTRA_LENGTH);
  const std::size_t length =
      directory::SIZE + nameLength + extraLength + number16(bytes, directory::COMMENT_LENGTH);
  if (bytes.size() < length) {
    failInvalid();
  }
  ZipEntry entry{std::string(bytes.substr(directory::SIZE, nameLength)),
                 number32(bytes, directory::LOCAL_HEADER),
                 number32(bytes, directory::COMPRESSED_SIZE),
                 number32(bytes, directory::UNCOMPRESSED_SIZE),
                 number16(bytes, directory::METHOD),
                 number16(bytes, directory::FLAGS),
                 number32(bytes, directory::CHECKSUM)};
  readExtraFields(bytes.substr(directory::SIZE + nameLength, extraLength),
                  {&entry.uncompressedSize, &entry.compressedSize, &entry.position});
  entry.position += bytesInFront;
  bytes.remove_prefix(length);
  return entry;
}

/// Whether a size in a local header is that of the directory, or left to an
/// extra field.
bool isSameSize(std::uint32_t size, std::uint64_t expected) {
  return size == expected || size == IN_EXTRA_FIELD;
}

bool agrees(std::string_view header, const ZipEntry& entry) {
  if (number16(header, local::METHOD) != entry.method ||
      number16(header, local::NAME_LENGTH) != entry.name.size()) {
    return false;
  }
  return (number16(header, local::FLAGS) & FLAG_SIZES_FOLLOW) != 0 ||
         (number32(header, local::CHECKSUM) == entry.checksum &&
          isSameSize(number32(header, local::COMPRESSED_SIZE), entry.compressedSize) &&
          isSameSize(number32(header, local::UNCOMPRESSED_SIZE), entry.uncompressedSize));
}

}  // namespace

ZipDirectory readZipDirectory(const ArchiveFile& file) {
  const DirectoryPlace place = findDirectory(file);
  DirectoryBytes bytes(file, place.start(), place.end);
  ZipDirectory result;
  // The number is the archive's own word: nothing is reserved for it.
  for (std::uint64_t i = 0; i < place.count; ++i) {
    result.entries.push_back(takeEntry(bytes.rest(), place.bytesInFront()));
  }
  result.hasOtherInFront =
      place.bytesInFront() > 0 && readRecord<local::SIZE>(file, 0, local::SIGNATURE).has_value();
  result.isMiscounted = !result.entries.empty() && bytes.rest().starts_with(directory::SIGNATURE);
  return result;
}

std::optional<std::uint64_t> findContent(const ArchiveFile& file, const ZipEntry& entry) {
  const auto header = readRecord<local::SIZE>(file, entry.position, local::SIGNATURE);
  if (!header || !agrees(view(*header), entry)) {
    return std::nullopt;
  }
  return entry.position + local::SIZE + entry.name.size() + number16(view(*header), local::EXTRA_LENGTH);
}

bool isNamedAlike(const ArchiveFile& file, const ZipEntry& entry) {
  std::string name(entry.name.size(), '\0');
  return file.read(name, entry.position + local::SIZE) && name == entry.name;
}

}  // namespace vemo
