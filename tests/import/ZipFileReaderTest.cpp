#include "SceneFixture.h"
#include "support/Files.h"
#include "vemoview/import/archive/ArchiveFile.h"
#include "vemoview/import/archive/Compression.h"
#include "vemoview/import/archive/Inflate.h"
#include <vemo/import/archive/ZipFileReader.h>

#include <algorithm>
#include <span>
#include <sys/stat.h>

namespace vemo {

namespace {

using Entry = ArchiveBuilder::Entry;

std::string failureToOpen(const std::wstring& path) {
  return failureOf([&] { const ZipFileReader reader(path); });
}
const std::string INVALID = "ZipException: Invalid zip file | ::";

class ZipFileReaderTest : public testing::Test {
 protected:
  std::wstring write(std::span<const unsigned char> content) const {
    writeFile(_folder / "a.zip", {content.begin(), content.end()});
    return path();
  }
  ZipFileReader open(const ArchiveBuilder& builder) const { return ZipFileReader(write(builder.build())); }
  std::wstring path() const { return wide(_folder / "a.zip"); }

  /// @param places of bytes that must be as they are, from the end
  void expectEachCounts(std::vector<unsigned char> bytes, std::initializer_list<std::size_t> places) const {
    for (const std::size_t place : places) {
      unsigned char& byte = bytes[bytes.size() - place];
      byte ^= 4;
      EXPECT_EQ(failureToOpen(write(bytes)), INVALID) << place;
      byte ^= 4;
    }
  }

  TemporaryFolder _folder;
};

/// The content, or nothing when it cannot be read. No byte is left as it was.
std::optional<std::string> contentOf(const ZipFileReader& reader, const std::string& name) {
  std::string content(static_cast<std::size_t>(std::max(reader.getSize(name), 0)), '#');
  return reader.read(name, content.data()) ? std::optional(content) : std::nullopt;
}

TEST_F(ZipFileReaderTest, IndexesEntriesByNameTheLastOfEqualNames) {
  const ZipFileReader reader = open(ArchiveBuilder()
                                        .text("b.bin", "first")
                                        .text("a.bin", "a")
                                        .text("b.bin", "bb")
                                        .text("scene.xml", "<s/>")
                                        .text("z", ""));
  EXPECT_EQ(reader.getEntryCount(), 4);
  for (const auto& [index, name] : {std::pair(0, "a.bin"),
                                    {1, "b.bin"},
                                    {2, "scene.xml"},
                                    {3, "z"},
                                    {-1, "a.bin"},
                                    {4, ""},
                                    {1 << 30, ""}}) {
    EXPECT_EQ(reader.getEntryName(index), name) << index;
  }
  EXPECT_EQ(reader.getSize("b.bin"), 2);
  EXPECT_EQ(reader.getSize("z"), 0);
  EXPECT_EQ(reader.getSize("A.bin"), -1);
  EXPECT_EQ(contentOf(reader, "b.bin"), "bb");
  EXPECT_EQ(contentOf(reader, "z"), "");
  EXPECT_EQ(contentOf(reader, "b.bin"), "bb");
  EXPECT_EQ(contentOf(reader, "B.bin"), std::nullopt);
  EXPECT_EQ(reader.getDuplicateNames(), std::vector<std::string>{"b.bin"});
}

TEST_F(ZipFileReaderTest, SharesTheArchiveBetweenCopies) {
  auto first = std::make_unique<ZipFileReader>(open(ArchiveBuilder().text("x", "content")));
  const ZipFileReader second(*first);
  ZipFileReader third = second;
  third = *first;
  first.reset();
  EXPECT_EQ(contentOf(second, "x"), "content");
  EXPECT_EQ(contentOf(third, "x"), "content");
}

TEST_F(ZipFileReaderTest, OpensAnyNameAndNoEntries) {
  const std::filesystem::path name = _folder / "caf\xE9.zip";
  ArchiveBuilder().text("x", "content").write(name);
  EXPECT_EQ(contentOf(ZipFileReader(wide(name)), "x"), "content");
  // A file that starts with the end of an archive is not taken for one.
  std::vector<unsigned char> empty = ArchiveBuilder().build();
  EXPECT_EQ(failureToOpen(write(empty)), INVALID);
  empty.insert(empty.begin(), 'x');
  const ZipFileReader reader(write(empty));
  EXPECT_EQ(reader.getEntryCount(), 0);
  EXPECT_EQ(reader.getEntryName(0), "");
}

TEST_F(ZipFileReaderTest, ReportsWhatItCannotOpen) {
  EXPECT_EQ(failureToOpen(path()), "FileNotFoundException: File does not exist | ::");
  write(ArchiveBuilder().build());
  EXPECT_EQ(failureToOpen(path() + std::wstring(L"\0x", 2)),
            "FileNotFoundException: File does not exist | ::");
  std::filesystem::create_symlink("circle", _folder / "circle");
  EXPECT_EQ(failureToOpen(wide(_folder / "circle")), "IOException: Too many levels of symbolic links | ::");
  writeFile(_folder / "text", "text");
  writeFile(_folder / "empty", "");
  ASSERT_EQ(mkfifo((_folder / "pipe").c_str(), 0600), 0);
  for (const char* name : {"text", "empty", "pipe", "."}) {
    EXPECT_EQ(failureToOpen(wide(_folder / name)), INVALID) << name;
  }
  ArchiveBuilder().text("x", "").write(_folder / "a.zip");
  std::filesystem::permissions(_folder / "a.zip", std::filesystem::perms::group_read);
  EXPECT_EQ(failureToOpen(path()), "IOException: No read permission | ::");
}

TEST_F(ZipFileReaderTest, RejectsAWrongEntryCount) {
  ArchiveBuilder builder;
  builder.text("x", "content").text("y", "");
  for (const std::uint64_t count : {std::uint64_t{3}, std::uint64_t{0xfffe}, std::uint64_t{1} << 60}) {
    EXPECT_EQ(failureToOpen(write(ArchiveBuilder(builder).claimEntryCount(count).build())), INVALID);
  }
  EXPECT_EQ(open(ArchiveBuilder(builder).claimEntryCount(1)).getEntryCount(), 1);
  // The number of this disk, that of the directory's, entries on this one; its position.
  expectEachCounts(builder.build(), {18, 16, 14, 3});
}

TEST_F(ZipFileReaderTest, ReadsMoreThan65535Entries) {
  constexpr int COUNT = 70000;
  ArchiveBuilder builder;
  for (int i = 0; i < COUNT; ++i) {
    builder.text("e" + std::to_string(i), std::to_string(i));
  }
  const std::vector<unsigned char> bytes = builder.stored().build();
  const ZipFileReader reader(write(bytes));
  EXPECT_EQ(reader.getEntryCount(), COUNT);
  EXPECT_EQ(reader.getEntryName(COUNT - 1), "e9999");
  EXPECT_EQ(contentOf(reader, "e69999"), "69999");
  // The first three of the 64-bit record, the directory's size, and the disks of the locator.
  expectEachCounts(bytes, {82, 78, 74, 51, 38, 26});
}

TEST_F(ZipFileReaderTest, RejectsDirectoriesThatAreCutShort) {
  const std::vector<unsigned char> bytes = ArchiveBuilder().text("x", "content").stored().build();
  constexpr std::size_t DIRECTORY = 30 + 1 + 7, ENTRY = 46 + 1;
  for (std::size_t size = 0; size < ENTRY; ++size) {
    std::vector<unsigned char> cut = bytes;
    cut.erase(cut.begin() + DIRECTORY + static_cast<std::ptrdiff_t>(size), cut.begin() + DIRECTORY + ENTRY);
    cut[DIRECTORY + size + 12] = static_cast<unsigned char>(size);
    EXPECT_EQ(failureToOpen(write(cut)), INVALID) << size;
  }
  // The signature, the length of the name, and the place in the file.
  expectEachCounts(bytes, {22 + ENTRY, 22 + ENTRY - 29, 3});
}

TEST_F(ZipFileReaderTest, ReadsNothingBehindBytesInMemory) {
  std::vector<unsigned char> bytes = ArchiveBuilder().text("x", "content").stored().build();
  const auto content = [&bytes] { return contentOf(ZipFileReader(std::as_bytes(std::span(bytes))), "x"); };
  EXPECT_EQ(content(), "content");
  bytes[30 + 1 + 7 + 45] = 0x70;
  EXPECT_EQ(content(), std::nullopt) << "a header 2 GiB behind them";
  ArchiveBuilder builder;
  builder.text("x", "content").forge([](Entry& e) { e.compressedSize = e.uncompressedSize = 100; });
  bytes = builder.stored().build();
  EXPECT_EQ(content(), std::nullopt) << "content that ends behind them";
}

TEST_F(ZipFileReaderTest, RejectsImpossibleSizes) {
  const struct {
    const char* name;
    bool stored;
    std::function<void(Entry&)> forgery;
    int size;
  } CASES[] = {
      {"2 GiB", false, [](Entry& e) { e.uncompressedSize = 0x7ffffff0; }, 0x7ffffff0},
      {"4 GiB", false, [](Entry& e) { e.uncompressedSize = 0xfffffffe; }, ZipFileReader::SIZE_LIMIT},
      {"2 GiB, of so many bytes that it could be", false,
       [](Entry& e) {
         e.data.resize(3 << 20);
         e.compressedSize = 3 << 20;
         e.uncompressedSize = 0x80000000;
       },
       ZipFileReader::SIZE_LIMIT},
      {"just beyond a small entry", false,
       [](Entry& e) { e.uncompressedSize = ZipFileReader::SMALL_ENTRY_SIZE + 1; }, 0x10001},
      {"far longer than stored", true, [](Entry& e) { e.uncompressedSize = 0x10001; }, 0x10001},
      {"more compressed bytes than the file has", false,
       [](Entry& e) { e.compressedSize = e.uncompressedSize = 0x10000000; }, 0x10000000},
      {"encrypted", false, [](Entry& e) { e.flags |= 1; }, 7},
      {"bzip2", false, [](Entry& e) { e.method = 12; }, 7},
      {"unknown method", true, [](Entry& e) { e.method = 0xffff; }, 7},
  };
  for (const auto& example : CASES) {
    ArchiveBuilder builder;
    builder.text("good", "content").text("x", "content").forge(example.forgery);
    const ZipFileReader reader = open(example.stored ? builder.stored() : builder);
    EXPECT_EQ(reader.getSize("x"), example.size) << example.name;
    EXPECT_FALSE(reader.isSizePossible("x")) << example.name;
    char untouched = '#';
    EXPECT_FALSE(reader.read("x", &untouched)) << example.name;
    EXPECT_EQ(untouched, '#') << example.name;
    EXPECT_EQ(contentOf(reader, "good"), "content") << example.name;
  }
}

TEST_F(ZipFileReaderTest, ReadsWhatDeflatesBest) {
  std::string zeros;
  zeros.resize(20'000'000);
  EXPECT_EQ(contentOf(open(ArchiveBuilder().text("x", zeros)), "x"), zeros);
}

TEST_F(ZipFileReaderTest, SaysWhatIsWrongWithContentThatItReads) {
  const struct {
    const char* name;
    std::function<void(Entry&)> forgery;
    std::string content;
    std::optional<std::size_t> bytesRead;
    bool isChecksumWrong;
  } CASES[] = {
      {"longer", [](Entry& e) { e.uncompressedSize += 3; }, std::string("content\0\0\0", 10), 7, false},
      {"shorter", [](Entry& e) { e.uncompressedSize -= 3; }, "cont", std::nullopt, true},
      {"checksum", [](Entry& e) { e.crc ^= 1; }, "content", std::nullopt, true},
      {"good", [](Entry&) {}, "content", std::nullopt, false},
  };
  for (const auto& example : CASES) {
    for (const bool isStored : {false, true}) {
      ArchiveBuilder builder;
      builder.text("x", "content").forge(example.forgery);
      const ZipFileReader reader = open(isStored ? builder.stored() : builder);
      EXPECT_EQ(contentOf(reader, "x"), example.content) << example.name;
      ZipFileReader::ContentFlaws flaws;
      std::string content(example.content.size() + 8, '#');
      EXPECT_TRUE(reader.read("x", content.data(), &flaws)) << example.name;
      EXPECT_EQ(content, example.content + "########") << example.name;
      EXPECT_EQ(flaws.bytesRead, example.bytesRead) << example.name;
      EXPECT_EQ(flaws.isChecksumWrong, example.isChecksumWrong) << example.name;
    }
  }
}

TEST_F(ZipFileReaderTest, FindsContentBehindOtherBytesAndChecksItsHeader) {
  const std::vector<unsigned char> good =
      ArchiveBuilder().text("first", "stored").text("x", "content").stored().build();
  std::vector<unsigned char> inside(100 + good.size(), 'P');
  std::ranges::copy(good, inside.begin() + 100);
  EXPECT_EQ(contentOf(ZipFileReader(write(inside)), "x"), "content");

  const std::size_t header = 30 + std::string("first").size() + std::string("stored").size();
  // The signature, the method, the checksum, both sizes, the length of the name.
  for (const std::size_t place : {0, 8, 14, 18, 22, 26}) {
    std::vector<unsigned char> invalid = good;
    invalid.at(header + place) ^= 1;
    EXPECT_EQ(contentOf(ZipFileReader(write(invalid)), "x"), std::nullopt) << place;
    EXPECT_EQ(contentOf(ZipFileReader(write(invalid)), "first"), "stored") << place;
  }
  std::vector<unsigned char> sizesFollow = good;
  sizesFollow.at(header + 6) |= 8;
  std::fill_n(sizesFollow.begin() + static_cast<std::ptrdiff_t>(header) + 14, 12, '\0');
  EXPECT_EQ(contentOf(ZipFileReader(write(sizesFollow)), "x"), "content");
}

TEST_F(ZipFileReaderTest, ReadsArchivesWithTheLongestComment) {
  std::vector<unsigned char> archive = ArchiveBuilder().text("x", "content").build();
  archive.resize(archive.size() + 0xffff, ' ');
  const std::size_t length = archive.size() - 0xffff - 2;
  archive[length] = archive[length + 1] = 0xff;
  EXPECT_EQ(contentOf(ZipFileReader(write(archive)), "x"), "content");
  archive.insert(archive.end(), 1, ' ');
  EXPECT_EQ(failureToOpen(write(archive)), INVALID);
}

/// An archive of one stored entry "x" whose directory has both sizes in an extra
/// field of the given content, and 32 set bits in their place.
std::vector<unsigned char> withExtraField(const std::vector<unsigned char>& field) {
  std::vector<unsigned char> archive = ArchiveBuilder().text("x", "content").stored().build();
  const std::size_t directory = 30 + 1 + 7;
  const std::size_t end = directory + 46 + 1;
  std::fill_n(archive.begin() + directory + 20, 8, 0xff);
  archive[directory + 30] = static_cast<unsigned char>(field.size());
  archive[end + 12] += static_cast<unsigned char>(field.size());
  archive.insert(archive.begin() + end, field.begin(), field.end());
  return archive;
}

TEST_F(ZipFileReaderTest, TakesSizesFromAnExtraField) {
  const std::vector<unsigned char> sizes{1, 0, 16, 0, 7, 0, 0, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0};
  std::vector<unsigned char> behindAnother{0x55, 0x54, 1, 0, 9};
  behindAnother.insert(behindAnother.end(), sizes.begin(), sizes.end());
  for (const auto& field : {sizes, behindAnother}) {
    const ZipFileReader reader(write(withExtraField(field)));
    EXPECT_EQ(reader.getSize("x"), 7);
    EXPECT_EQ(contentOf(reader, "x"), "content");
  }
  std::vector<unsigned char> another = sizes;
  another[0] = 2;
  EXPECT_FALSE(ZipFileReader(write(withExtraField(another))).isSizePossible("x"));
  // One that is cut short at any place, and one that claims more than there is.
  for (std::size_t size = 0; size < sizes.size(); ++size) {
    const std::vector<unsigned char> cut(sizes.begin(), sizes.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_FALSE(ZipFileReader(write(withExtraField(cut))).isSizePossible("x")) << size;
  }
  std::vector<unsigned char> endless = sizes;
  endless[2] = endless[3] = 0xff;
  EXPECT_EQ(contentOf(ZipFileReader(write(withExtraField(endless))), "x"), "content");
}

/// What an entry's bytes inflate to in both ways, when `size` bytes are wanted.
std::pair<std::optional<std::string>, std::optional<std::string>> inflateBoth(const std::wstring& path,
                                                                              std::size_t size) {
  const ArchiveFile file(path);
  const CompressedBytes compressed(file, 0, file.getSize());
  const auto contentBy = [&](const auto& inflate) {
    std::string content(size, '#');
    const auto count = inflate(compressed, std::span(content));
    return count ? std::optional(content.substr(0, *count)) : std::nullopt;
  };
  return {contentBy(inflateWhole), contentBy(inflateInBlocks)};
}

TEST_F(ZipFileReaderTest, InflatesWholeEntriesAsInBlocks) {
  std::vector<unsigned char> content(300'000);
  for (std::size_t i = 0; i < content.size(); ++i) {
    content[i] = static_cast<unsigned char>(i % 251 * (i / 1000));
  }
  Entry entry;
  ArchiveBuilder().bytes("x", content).forge([&](Entry& e) { entry = e; }).build();
  write(entry.data);
  for (const std::size_t size : {content.size(), content.size() + 1, 3 * content.size()}) {
    const auto [whole, inBlocks] = inflateBoth(path(), size);
    EXPECT_EQ(whole, std::string(content.begin(), content.end())) << size;
    EXPECT_EQ(whole, inBlocks) << size;
  }
  // The plain way stops where the content is full, whatever follows.
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, content.size() - 1}) {
    const auto [whole, inBlocks] = inflateBoth(path(), size);
    EXPECT_EQ(whole, std::nullopt) << size;
    EXPECT_EQ(inBlocks, std::string(content.begin(), content.begin() + static_cast<std::ptrdiff_t>(size)));
  }
  // Of a damaged stream the fast way gives the same or nothing.
  for (std::size_t i = 0; i < entry.data.size(); i += 97) {
    std::vector<unsigned char> damaged = entry.data;
    damaged[i] ^= 0x10;
    const auto [whole, inBlocks] = inflateBoth(write(damaged), content.size());
    EXPECT_TRUE(!whole || whole == inBlocks) << i;
  }
}

TEST_F(ZipFileReaderTest, DoesNotReadMoreThanContentCouldNeed) {
  // Empty blocks, without an end.
  std::vector<unsigned char> blocks;
  for (int i = 0; i < 100'000; ++i) {
    blocks.insert(blocks.end(), {0, 0, 0, 0xff, 0xff});
  }
  EXPECT_EQ(inflateBoth(write(blocks), 10).first, std::nullopt);
  blocks.insert(blocks.end(), {1, 1, 0, 0xfe, 0xff, 'x'});
  EXPECT_EQ(inflateBoth(write(blocks), 1),
            std::pair(std::optional<std::string>(), std::optional<std::string>("x")));
}

}  // namespace

}  // namespace vemo
