// Zip archives: as they are, or as they are built of names, contents and forgeries,
// and deflated bytes. The first byte of the input says which.

#include "Fuzzing.h"
#include "support/ArchiveBuilder.h"
#include "vemoview/import/archive/Inflate.h"
#include <vemo/import/archive/ZipFileReader.h>

#include <map>
#include <optional>
#include <span>
#include <sstream>

namespace vemo {

namespace {

/// More would only take more time.
constexpr int MAX_ENTRIES = 8;
constexpr int MAX_CONTENT = 1 << 14;

std::optional<std::string> contentOf(const ZipFileReader& reader, const std::string& name) {
  if (reader.isSizePossible(name) && reader.getSize(name) > MAX_CONTENT) {
    return std::nullopt;
  }
  std::string content(reader.isSizePossible(name) ? static_cast<std::size_t>(reader.getSize(name)) : 0, '#');
  ZipFileReader::ContentFlaws flaws;
  const bool isRead = reader.read(name, content.data(), &flaws);
  require(!isRead || !flaws.bytesRead || *flaws.bytesRead < content.size(), "More is read than there is");
  return isRead && !flaws.bytesRead && !flaws.isChecksumWrong ? std::optional(content) : std::nullopt;
}

/// Reads all entries; the expected ones have these contents.
void readArchive(std::string_view bytes, const std::map<std::string, std::string>& expected) {
  const ZipFileReader reader(std::as_bytes(std::span(bytes)));
  for (int i = 0; i < reader.getEntryCount(); ++i) {
    const std::string name = reader.getEntryName(i);
    require(i == 0 || reader.getEntryName(i - 1) < name, "The names do not ascend");
    reader.hasOtherName(name);
    contentOf(reader, name);
  }
  for (const auto& [name, content] : expected) {
    require(contentOf(reader, name) == content, "An entry has another content");
  }
}

std::string take(std::istream& in, std::size_t count) {
  std::string taken(count, '\0');
  in.read(taken.data(), static_cast<std::streamsize>(count));
  taken.resize(static_cast<std::size_t>(in.gcount()));
  return taken;
}

unsigned char take(std::istream& in) {
  return static_cast<unsigned char>(in.get());
}

void forge(ArchiveBuilder::Entry& entry, unsigned char field, unsigned char value) {
  std::uint32_t* const numbers[] = {&entry.crc, &entry.compressedSize, &entry.uncompressedSize};
  std::uint16_t* const words[] = {&entry.method, &entry.flags};
  if (field < 96) {
    *numbers[field % 3] ^= std::uint32_t{value} << field / 3 % 4 * 8;
  } else if (field < 112) {
    *words[field % 2] = value;
  } else {
    entry.data.resize(entry.data.size() * value / 256);
  }
}

void readBuiltArchive(std::istream& in) {
  ArchiveBuilder archive;
  std::map<std::string, std::string> expected;
  // Deflating takes the most time.
  if (take(in) % 32 != 0) {
    archive.stored();
  }
  for (int i = 0; i < MAX_ENTRIES && in.peek() >= 0; ++i) {
    const unsigned char field = take(in);
    const std::string name = take(in, take(in) % 8U);
    const std::string content = take(in, take(in));
    archive.text(name, content);
    expected[name] = content;
    if (field < 128) {
      const unsigned char value = take(in);
      archive.forge([=](ArchiveBuilder::Entry& entry) { forge(entry, field, value); });
      expected.erase(name);
    }
  }
  const auto bytes = archive.build();
  readArchive({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, expected);
}

void inflate(std::string_view input, std::size_t size) {
  const ArchiveFile file(std::as_bytes(std::span(input)));
  const CompressedBytes compressed(file, 0, file.getSize());
  std::string whole(size, '#'), inBlocks(size, '#');
  const auto count = inflateWhole(compressed, whole);
  require(!count || (inflateInBlocks(compressed, inBlocks) == count && whole == inBlocks),
          "The two ways of inflating differ");
}

}  // namespace

void readInput(const std::string& input) {
  std::istringstream in(input);
  const unsigned char way = take(in);
  if (way % 4 == 0) {
    inflate(std::string_view(input).substr(1), way);
  } else if (way % 4 == 1) {
    readArchive(std::string_view(input).substr(1), {});
  } else {
    readBuiltArchive(in);
  }
}

}  // namespace vemo
