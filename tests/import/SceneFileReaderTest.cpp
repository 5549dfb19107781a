#include "SceneFixture.h"
#include "support/Files.h"
#include "support/Meshes.h"
#include <vemo/import/FaultFinding.h>
#include <vemo/scenegraph/Findings.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <new>
#include <random>
#include <sys/resource.h>

namespace vemo {

namespace {

using testing::ElementsAre;
using Entry = ArchiveBuilder::Entry;

class SceneFileReaderTest : public testing::Test {
 protected:
  SceneFileReader open(const ArchiveBuilder& builder) const {
    builder.write(_folder / "a.zip");
    return SceneFileReader(ZipFileReader(wide(_folder / "a.zip")));
  }
  std::unique_ptr<QxElement> parse(const std::string& xml) const {
    return open(ArchiveBuilder().text("scene.xml", xml)).readXml("scene.xml");
  }

  TemporaryFolder _folder;
};

std::string repeated(const std::string& text, std::size_t count) {
  std::string out;
  for (std::size_t i = 0; i < count; ++i) {
    out += text;
  }
  return out;
}

TEST_F(SceneFileReaderTest, ReadsBytesAndBigEndianWords) {
  SceneFileReader reader =
      open(ArchiveBuilder().bytes("i", {0, 0, 0, 1, 0xff, 0xff, 0xff, 0xfe}).bytes("empty", {}));
  EXPECT_THAT(ArrayOwner<int>(reader.readIntBuffer("i")).values(), ElementsAre(1, -2));
  EXPECT_THAT(ArrayOwner<unsigned char>(reader.readEntry("i")).values(),
              ElementsAre(0, 0, 0, 1, 0xff, 0xff, 0xff, 0xfe));
  const ArrayOwner<int> empty(reader.readIntBuffer("empty"));
  EXPECT_EQ(empty.count(), 0);
  EXPECT_NE(empty.data(), nullptr);
}

// With sanitizers a process without memory ends.
#if !defined(__SANITIZE_ADDRESS__)
TEST_F(SceneFileReaderTest, DoesNotBlameAnEntryForWhichThereIsNoMemory) {
  SceneFileReader reader = open(ArchiveBuilder().text("large", std::string(64 << 20, 'x')));
  rlimit former{};
  getrlimit(RLIMIT_AS, &former);
  const rlimit none{1, former.rlim_max};
  setrlimit(RLIMIT_AS, &none);
  EXPECT_THROW(reader.readEntry("large"), std::bad_alloc);
  setrlimit(RLIMIT_AS, &former);
  EXPECT_EQ(ArrayOwner<unsigned char>(reader.readEntry("large")).count(), 64 << 20);
}
#endif

TEST_F(SceneFileReaderTest, NamesTheEntryThatItCannotRead) {
  SceneFileReader reader = open(ArchiveBuilder()
                                    .bytes("six", {1, 2, 3, 4, 5, 6})
                                    .ints("broken", {1})
                                    .forge([](Entry& e) { e.data[0] = 0xff; })
                                    .ints("huge", {1})
                                    .forge([](Entry& e) { e.uncompressedSize = 0xffffffff; }));
  EXPECT_EQ(failureOf([&] { reader.readEntry("foo"); }),
            "IOException: Requested non-existent entry 'foo'.<br>Your file may be corrupt. | ::foo");
  for (const std::string name : {"broken", "huge"}) {
    const std::string expected = "IOException: Could not completely read entry '" + name +
                                 "'<br>Your file may be corrupt. | ::" + name;
    EXPECT_EQ(failureOf([&] { reader.readEntry(name); }), expected);
    EXPECT_EQ(failureOf([&] { reader.readFloatBuffer(name); }), expected);
  }
  for (const std::string name : {"six", "foo"}) {
    const std::string end = " buffer;  not a multiple of 4 | ::" + name;
    EXPECT_EQ(failureOf([&] { reader.readIntBuffer(name); }), "IOException: Bad size for integer" + end);
    EXPECT_EQ(failureOf([&] { reader.readFloatBuffer(name); }), "IOException: Bad size for float" + end);
  }
}

TEST_F(SceneFileReaderTest, SaysWhatItDoesNotSupport) {
  SceneFileReader reader = open(ArchiveBuilder()
                                    .ints("secret", {1})
                                    .forge([](Entry& e) { e.flags |= 1; })
                                    .ints("odd", {1})
                                    .forge([](Entry& e) { e.method = 12; }));
  const auto causeOf = [](const auto& read) {
    try {
      read();
    } catch (const IOException& exception) {
      return describe(exception);
    }
    return std::string();
  };
  const std::string failure = "<br>Your file may be corrupt: it is ";
  EXPECT_EQ(causeOf([&] { reader.readIntBuffer("secret"); }),
            "Could not completely read entry 'secret'" + failure + "encrypted");
  EXPECT_EQ(
      causeOf([&] { reader.readFloatBuffer("odd"); }),
      "Could not completely read entry 'odd'" + failure + "compressed by method 12, which is not supported");
}

TEST_F(SceneFileReaderTest, KeepsTheLastRunOfText) {
  const std::pair<const char*, const char*> CASES[] = {
      {"<a>t1&amp;t2</a>", "t2"}, {"<a>text</a>", "text"},         {"<a>text\n</a>", "\n"},
      {"<a>text<b/> </a>", " "},  {"<a>text<b>x</b></a>", "text"}, {"<a/>", ""},
  };
  for (const auto& [xml, text] : CASES) {
    EXPECT_EQ(parse(xml)->getText(), text) << xml;
  }
}

TEST_F(SceneFileReaderTest, NamesTheLineOfAnXmlError) {
  const std::pair<std::string, int> CASES[] = {
      {"<a>\n<b>\n</a>", 3},    {"", 1},
      {"<a x='1' x='2'/>", 1},  {"<a/>\n<b/>", 2},
      {"\n\n<a>&none;</a>", 3}, {std::string("<a>\0</a>", 8), 1},
      {"<a>\n\xFF</a>", 2},
  };
  for (const auto& [xml, line] : CASES) {
    const std::string number = std::to_string(line);
    EXPECT_EQ(failureOf([&xml = xml, this] { parse(xml); }),
              "XMLException: Parse error in scene.xml at line" + number + " | :" + number + ":scene.xml");
  }
}

TEST_F(SceneFileReaderTest, BoundsTheDepth) {
  constexpr std::size_t bound = ReadingLimits::MAX_DEPTH;
  EXPECT_EQ(parse(repeated("<a>", bound) + repeated("</a>", bound))->getName(), "a");
  for (const std::size_t depth : {bound, std::size_t{1000000}}) {
    EXPECT_EQ(failureOf([&] { parse("<b>\n" + repeated("<a>", depth)); }),
              "XMLException: Elements in scene.xml are nested deeper than 128 at line 2 | :2:scene.xml");
  }
}

/// So many elements and attributes: of four that elements have, three are by default.
std::string xmlOfSize(std::uint64_t elements) {
  const std::string types = "<!DOCTYPE a [<!ATTLIST b c CDATA '' d CDATA '' e CDATA ''>]>";
  return types + "<a>\n" + repeated("<b/>", (elements - 1) / 4) + repeated("<c/>", (elements - 1) % 4) +
         "</a>";
}

const std::string TOO_MANY_ELEMENTS =
    "XMLException: scene.xml has more elements and attributes than an archive of this size should "
    "hold at line 2 | :2:scene.xml";

TEST_F(SceneFileReaderTest, BoundsTheElementsThatASmallArchiveHas) {
  constexpr std::uint64_t bound = ReadingLimits::ELEMENTS_OF_SMALL_ARCHIVE;
  EXPECT_EQ(parse(xmlOfSize(bound))->getName(), "a");
  EXPECT_EQ(failureOf([&] { parse(xmlOfSize(bound + 1)); }), TOO_MANY_ELEMENTS);
}

TEST_F(SceneFileReaderTest, BoundsTheElementsOfALargerArchiveByItsBytes) {
  // Noise does not deflate.
  std::vector<unsigned char> noise(40'000);
  std::mt19937 random;
  std::ranges::generate(noise, [&random] { return static_cast<unsigned char>(random()); });
  const auto elementsOf = [&](std::uint64_t elements) {
    SceneFileReader reader =
        open(ArchiveBuilder().bytes("noise", noise).text("scene.xml", xmlOfSize(elements)));
    const std::uint64_t bound = reader.getLimits().elements;
    EXPECT_GT(bound, ReadingLimits::ELEMENTS_OF_SMALL_ARCHIVE);
    return std::pair(bound, failureOf([&] { reader.readXml("scene.xml"); }));
  };
  // The size of the archive hardly depends on the number of elements.
  const auto [bound, none] = elementsOf(600'000);
  EXPECT_EQ(none, "");
  EXPECT_EQ(elementsOf(bound + 100'000).second, TOO_MANY_ELEMENTS);
}

TEST_F(SceneFileReaderTest, RefusesADescriptionTooLargeForTheArchiveBeforeItIsInflated) {
  constexpr std::uint64_t bound = ReadingLimits::DESCRIPTION_BYTES_OF_SMALL_ARCHIVE;
  const auto failureOfSize = [&](std::uint64_t size) {
    // Large enough to deflate to so much, and broken.
    SceneFileReader reader = open(ArchiveBuilder()
                                      .bytes("scene.xml", std::vector<unsigned char>(70'000, 0xff))
                                      .stored()
                                      .forge([&](Entry& e) {
                                        e.method = 8;
                                        e.uncompressedSize = static_cast<std::uint32_t>(size);
                                      }));
    return failureOf([&] { reader.readXml("scene.xml"); });
  };
  EXPECT_THAT(failureOfSize(bound), testing::HasSubstr("Could not completely read"));
  EXPECT_EQ(failureOfSize(bound + 1),
            "IOException: Entry 'scene.xml' is larger than the description in an archive of this size should "
            "be | ::scene.xml");
}

TEST_F(SceneFileReaderTest, BoundsTheBytesThatASmallArchiveHas) {
  // Large enough to deflate to so much, and broken: nothing is read in the end.
  SceneFileReader reader = open(ArchiveBuilder()
                                    .bytes("p", std::vector<unsigned char>(70'000, 0xff))
                                    .stored()
                                    .forge([](Entry& e) {
                                      e.method = 8;
                                      e.uncompressedSize = ReadingLimits::BYTES_OF_SMALL_ARCHIVE / 4 - 1;
                                    })
                                    .text("four", "four"));
  const auto failure = [&] { return failureOf([&] { reader.readEntry("p"); }); };
  for (int i = 0; i < 4; ++i) {
    EXPECT_THAT(failure(), testing::HasSubstr("Could not completely read"));
  }
  EXPECT_EQ(
      failure(),
      "IOException: Entry 'p' cannot be read: the scene asks for more data than an archive of this size "
      "can hold.<br>Your file may be corrupt. | ::p");
  EXPECT_EQ(failureOf([&] { delete[] reader.readEntry("four").data; }), "") << "it is less than what is left";
}

/// Else very much could be made of a few bytes.
TEST_F(SceneFileReaderTest, FillsOnlySoMuchWithZeros) {
  const auto failureOfSize = [&](std::uint32_t size) {
    SceneFileReader reader = open(ArchiveBuilder()
                                      .bytes("p", std::vector<unsigned char>(300'000, 0xff))
                                      .stored()
                                      .forge([size](Entry& e) { e.uncompressedSize = size; }));
    return failureOf([&] { delete[] reader.readEntry("p").data; });
  };
  EXPECT_EQ(failureOfSize(2'248'576), "");
  EXPECT_THAT(failureOfSize(2'248'577), testing::HasSubstr("Could not completely read entry 'p'"));
}

/// Else a few million bytes that many entries share keep the reader busy for hours.
TEST_F(SceneFileReaderTest, BoundsTheCompressedBytesThatGiveHardlyAnyContent) {
  const std::string emptyBlock("\0\0\0\xff\xff", 5);
  const std::string lastByte("\1\1\0\xfe\xff!", 6);
  const std::string blocks = repeated(emptyBlock, 400'000) + lastByte;
  SceneFileReader reader =
      open(ArchiveBuilder().bytes("p", {blocks.begin(), blocks.end()}).stored().forge([](Entry& e) {
        e.method = 8;
        e.uncompressedSize = 1;
      }));
  const auto failure = [&] { return failureOf([&] { delete[] reader.readEntry("p").data; }); };
  const std::uint64_t uses = ReadingLimits::COMPRESSED_BYTES_OF_SMALL_ARCHIVE / blocks.size() +
                             ReadingLimits::COMPRESSED_BYTES_PER_BYTE;
  for (std::uint64_t i = 0; i < uses; ++i) {
    ASSERT_EQ(failure(), "");
  }
  EXPECT_THAT(failure(), testing::HasSubstr("asks for more data than an archive of this size can hold"));
}

/// Of which an entry that is too large for its bytes is none.
TEST_F(SceneFileReaderTest, BoundsWhatIsMadeOfSmallContent) {
  SceneFileReader reader = open(ArchiveBuilder().text("four", "four").text("large", "").forge([](Entry& e) {
    e.uncompressedSize = 1'000'000;
  }));
  const auto bytes = static_cast<std::int64_t>(ReadingLimits::ofArchive(0, 4).copies);
  reader.countNormals(bytes / 24, bytes / 8 - 1);
  const auto readFour = [&] { return failureOf([&] { delete[] reader.readEntry("four").data; }); };
  const std::string tooMuch =
      ": so many items share data that the scene would take memory or time out of proportion to its content. "
      "| ::";
  const auto valuesOf = [&](const char* name) {
    DecodedEntries& decoded = reader.getDecoded();
    decoded.countFloats("four");
    return decoded.getArray("four", name, 1)->GetPointer(0);
  };
  EXPECT_EQ(valuesOf("a"), valuesOf("a"));
  EXPECT_EQ(valuesOf("a"), valuesOf("b"));
  EXPECT_NE(failureOf([&] { valuesOf("c"); }), "");
  EXPECT_EQ(readFour(), "IOException: Entry 'four' cannot be read" + tooMuch + "four");
  for (const bool areOfPoints : {true, false}) {
    EXPECT_EQ(failureOf([&] { reader.getDecoded().getNormals(*makeRectangle(0, 1, 0, 1), areOfPoints); }),
              "IOException: Normals cannot be computed" + tooMuch);
  }
}

// Else databases of the next two could not be read.

TEST_F(SceneFileReaderTest, BoundsTheNamesOfArrays) {
  SceneFileReader reader = open(ArchiveBuilder().text("four", "four"));
  reader.getDecoded().countFloats("four");
  const auto failureOfName = [&](std::size_t size) {
    return failureOf([&] { reader.getDecoded().getArray("four", std::string(size, 'x'), 1); });
  };
  constexpr std::size_t LENGTH = 1U << 20U;
  for (std::size_t i = 0; i < 8; ++i) {
    ASSERT_EQ(failureOfName(LENGTH), "");
  }
  EXPECT_THAT(failureOfName(LENGTH), testing::HasSubstr("too many arrays have very long names"));
  EXPECT_EQ(failureOfName(200), "");
}

TEST_F(SceneFileReaderTest, BoundsTheArraysWithoutValues) {
  SceneFileReader reader = open(ArchiveBuilder().text("empty", ""));
  reader.getDecoded().countFloats("empty");
  const auto failureOfArray = [&](std::uint64_t number) {
    return failureOf([&] { reader.getDecoded().getArray("empty", std::to_string(number), 256); });
  };
  const std::uint64_t most = ReadingLimits::BYTES_OF_EMPTY_ARRAYS / (512 + 8 * 256);
  for (std::uint64_t i = 0; i < most; ++i) {
    ASSERT_EQ(failureOfArray(i), "");
  }
  EXPECT_EQ(failureOfArray(0), "");
  EXPECT_THAT(failureOfArray(most), testing::HasSubstr("too many arrays without values"));
}

TEST_F(SceneFileReaderTest, ExpandsNoEntitiesWithoutEnd) {
  std::string xml = "<!DOCTYPE a [<!ENTITY e0 \"0123456789\">";
  for (int i = 1; i < 12; ++i) {
    const std::string name = "e" + std::to_string(i);
    xml += "<!ENTITY " + name + " \"" + repeated("&e" + std::to_string(i - 1) + ";", 10) + "\">";
  }
  EXPECT_THAT(failureOf([&] { parse(xml + "]><a x=\"&e11;\"/>"); }),
              testing::StartsWith("XMLException: Parse error in scene.xml at line"));
}

TEST_F(SceneFileReaderTest, RepeatsOnlySoMuchText) {
  const std::string text = repeated("x", 100'000);
  // Else the parser would take it for an attack.
  const std::string blanks = repeated(" ", 100'000);
  const auto failureOfUses = [&](const std::string& declaration, const char* use, std::size_t count) {
    return failureOf([&] {
      parse("<!DOCTYPE a [" + declaration + "]>" + blanks + "<a>" + repeated(use, count) + "</a>");
    });
  };
  const std::string entity = "<!ENTITY e '" + text + "'>";
  const std::string attribute = "<!ATTLIST b c CDATA '" + text + "'>";
  for (const auto& [declaration, use] :
       {std::pair(entity, "<b c='&e;'/>"), std::pair(entity, "&e;"), std::pair(attribute, "<b/>")}) {
    EXPECT_EQ(failureOfUses(declaration, use, 171), "");
    EXPECT_THAT(failureOfUses(declaration, use, 173), testing::HasSubstr(" repeats text with entities"));
  }
}

TEST_F(SceneFileReaderTest, ReadsOnlySoManyDeclarations) {
  const auto failureOfCount = [&](std::size_t count) {
    return failureOf(
        [&] { parse("<!DOCTYPE a [" + repeated("<!ATTLIST b c CDATA 'd'>", count) + "]><a/>"); });
  };
  EXPECT_EQ(failureOfCount(10'000), "");
  EXPECT_THAT(failureOfCount(10'001), testing::HasSubstr("declares more than 10000 attributes at line 1"));
}

TEST_F(SceneFileReaderTest, KeepsFindingsWithTheirPlace) {
  SceneFileReader reader = open(ArchiveBuilder().text("x", ""));
  const std::string longName = repeated("\xC3\xA9", 100);
  {
    const SceneFileReader::ItemScope scene(&reader, "scene", {1});
    const std::string name = "x" + longName;
    const SceneFileReader::ItemScope item(&reader, name, {7});
    reader.report(FindingCode::ARRAY_LEFT_OUT, "left out", "c.bin");
  }
  ASSERT_EQ(reader.getFindings().size(), 1u);
  const Finding first = reader.getFindings()[0];
  EXPECT_EQ(first.text, "left out");
  EXPECT_EQ(first.entry, "c.bin");
  EXPECT_EQ(first.itemPath, "scene/x" + longName.substr(0, 58) + "...");
  EXPECT_EQ(first.line, 7);
  for (std::size_t i = 0; i < 2 * SceneFileReader::MAX_FINDINGS; ++i) {
    reader.report(FindingCode::VALUE_IGNORED, "again");
  }
  ASSERT_EQ(reader.getFindings().size(), SceneFileReader::MAX_FINDINGS + 2);
  EXPECT_EQ(reader.getFindings().back().text, "Further findings of this kind are not listed");
  reader.report(FindingCode::ARRAY_LEFT_OUT, "of another kind");
  EXPECT_EQ(reader.getFindings().back().text, "of another kind");
  reader.collectFaults();
  reader.report(FindingCode::VALUE_IGNORED, "for the ledger", "c.bin", "x");
  ASSERT_EQ(reader.getMarks().size(), 1U);
  EXPECT_EQ(reader.getMarks()[0].attribute, "x");
}

TEST_F(SceneFileReaderTest, CountsTheFindingsThatAnAuditDoesNotList) {
  SceneFileReader reader = open(ArchiveBuilder().text("x", ""));
  reader.collectFaults();
  reader.reportAll();
  std::vector<Finding> found;
  const FindingCapture capture(found);
  for (std::size_t i = 0; i < SceneFileReader::MAX_AUDIT_FINDINGS + 7; ++i) {
    reader.attempt([] { throw IOException("damaged"); });
  }
  reader.reportUnlisted();
  EXPECT_EQ(reader.getFindings().size(), SceneFileReader::MAX_AUDIT_FINDINGS);
  EXPECT_EQ(found.size(), SceneFileReader::MAX_AUDIT_FINDINGS + 1);
  EXPECT_EQ(found.back().text, "7 further findings of this kind are not listed");
}

}  // namespace

}  // namespace vemo
