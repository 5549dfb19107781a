#include "support/Databases.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkTypeInt32Array.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>
#include <tuple>

namespace vemo {

namespace {

using lum::io::FileError;
using testing::HasSubstr;

std::string repeat(const std::string& text, int count) {
  std::string all;
  for (; count > 0; --count) {
    all += text;
  }
  return all;
}

/// A number as it stands in an index.
std::string encoded(std::uint64_t value) {
  std::string digits;
  for (; value >= 0x80; value >>= 7U) {
    digits += static_cast<char>(value | 0x80U);
  }
  return digits + static_cast<char>(value);
}

/// A small database of a scene.
class DatabaseDamageTest : public testing::Test {
 protected:
  DatabaseDamageTest() {
    EXPECT_EQ(writeDatabase(path, *scene), FileIoStatus::Success);
    bytes = readFile(path);
  }

  /// Reads a database of these bytes; what was wrong with it, or nothing, and
  /// the node.
  std::string tryToRead(const std::string& content, Ptr<Node>* node = nullptr) {
    writeFile(path, content);
    try {
      const Ptr<Node> read = readDatabase(path);
      if (node != nullptr) {
        *node = read;
      }
      return {};
    } catch (const FileError& error) {
      EXPECT_STRNE(error.what(), "");
      return error.what();
    }
  }

  static bool isDatabase(const std::string& content) {
    std::istringstream in(content);
    std::ostringstream messages;
    const bool isDatabase = sdb::checkFormat(in, messages);
    EXPECT_EQ(isDatabase, messages.str().empty());
    return isDatabase;
  }

  const TemporaryFolder folder;
  const std::filesystem::path path = folder / "a.sdb";
  const Ptr<lum::SceneNode> scene = makeScene();
  std::string bytes;
};

TEST_F(DatabaseDamageTest, RejectsEveryPrefixAndTrailingBytes) {
  for (const std::string& whole :
       {bytes, readFile(testData("version-1.sdb")), readFile(testData("version-2.sdb"))}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      ASSERT_NE(tryToRead(whole.substr(0, size)), "") << size;
      ASSERT_FALSE(isDatabase(whole.substr(0, size))) << size;
    }
    EXPECT_NE(tryToRead(whole + '\0'), "");
    EXPECT_TRUE(isDatabase(whole));
  }
}

// A file of zeros takes no place on a disk, whatever its size.
TEST_F(DatabaseDamageTest, RefusesALargeIndexBeforeItTakesMemory) {
  const std::uint64_t size = std::uint64_t{1} << 33U;
  std::string header = std::string(lum::SDBWriter::SIGNATURE) +
                       R"(, "version": 2, "index": {"offset": 256, "size": )" + std::to_string(size) +
                       R"(, "hash": "0000000000000000"}})";
  header.resize(DatabaseBytes::HEADER_SIZE - 1, ' ');
  writeFile(path, header + '\n');
  std::filesystem::resize_file(path, DatabaseBytes::HEADER_SIZE + size);
  try {
    readDatabase(path);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_THAT(error.what(), HasSubstr("of its 8589934592 bytes, more than 67108864 are zeros"));
  }
}

TEST_F(DatabaseDamageTest, ReadsALargeIndexWithTheRightHash) {
  DatabaseBytes changed(bytes);
  changed.index += std::string(std::size_t{65} << 20U, 'x');
  EXPECT_THAT(tryToRead(changed.join()), HasSubstr("bytes follow the last record"));
  std::string wrong = changed.join();
  wrong.back() = 'y';
  EXPECT_THAT(tryToRead(wrong), HasSubstr("hash mismatch"));
}

TEST_F(DatabaseDamageTest, DetectsEveryWrongBitThatMatters) {
  const auto mesh = make<lum::PolyDataNode>();
  mesh->setPolyData(makeGeometry(false));
  ASSERT_EQ(writeDatabase(path, *mesh), FileIoStatus::Success);
  const std::string sound = readFile(path);
  for (std::size_t bit = 0; bit < 8 * sound.size(); ++bit) {
    std::string wrong = sound;
    wrong[bit / 8] = static_cast<char>(wrong[bit / 8] ^ (1U << bit % 8));
    Ptr<Node> read;
    if (tryToRead(wrong, &read).empty()) {
      // A byte between arrays, that nobody reads.
      ASSERT_EQ(sound[bit / 8], '\0') << bit;
      ASSERT_EQ(firstDifference(*mesh, *read), "") << bit;
    }
  }
}

// With a hash that is right again, what stands in the index is believed as far
// as it holds together. What is accepted can be written and read.
TEST_F(DatabaseDamageTest, SurvivesAnyChangedByteOfTheIndex) {
  const DatabaseBytes original(bytes);
  int accepted = 0;
  for (std::size_t place = 0; place < original.index.size(); ++place) {
    for (const int value :
         {0, 1, 2, 0x7F, 0x80, 0xFF, original.index[place] + 1, original.index[place] - 1}) {
      DatabaseBytes changed = original;
      changed.index[place] = static_cast<char>(value);
      Ptr<Node> read;
      if (!tryToRead(changed.join(), &read).empty()) {
        continue;
      }
      ++accepted;
      const Ptr<Node> again = throughStreams(*read);
      ASSERT_TRUE(again) << place;
      ASSERT_EQ(firstDifference(*read, *again), "") << place;
    }
  }
  EXPECT_GT(accepted, 0);
}

TEST_F(DatabaseDamageTest, IgnoresUnknownFieldsAndClasses) {
  const auto readWithout = [this](const std::string& name) {
    DatabaseBytes changed(bytes);
    changed.replaceInIndex(name, name.substr(0, name.size() - 1) + "~");
    Ptr<Node> read;
    std::vector<Finding> findings;
    const FindingCapture capture(findings);
    EXPECT_EQ(tryToRead(changed.join(), &read), "") << name;
    EXPECT_EQ(findings.size(), 1U) << name;
    return Ptr<lum::SceneNode>(read);
  };
  EXPECT_TRUE(readWithout("opacity")->hasModelCanvas());
  EXPECT_EQ(readWithout("SurfaceDrawable")->getModelCanvas().getDrawableCollection().getNodeCount(), 0U);
  EXPECT_FALSE(readWithout("orientationCanvas")->hasOrientationCanvas());
  EXPECT_FALSE(triadOf(*readWithout("cameraAttributes")).getCameraAttributes());
  EXPECT_FALSE(readWithout("CameraAttributes")->hasModelCanvas()->hasCameraAttributes());
  const auto read = readWithout("cellDataArrays");
  EXPECT_TRUE(surfaceOf(*read).find<lum::PolyDataNode>("first")->getCellDataArrays().empty());
  DatabaseBytes changed(bytes);
  changed.replaceInIndex("SceneNode", "SceneNodx");
  EXPECT_THAT(tryToRead(changed.join()), HasSubstr("root is of class SceneNodx"));
}

// A collection with nine unknown fields, and in it nodes of 101 unknown classes; there
// is one more class, but no node of it.
TEST_F(DatabaseDamageTest, ReportsUnknownClassesThatNodesHaveWithinLimits) {
  using namespace std::literals;
  std::string strings = "\150\22DrawableCollection\5nodes"s;
  std::string classes = "\147\0\12\1\23\0"s + repeat("\2\1\1\0"s, 9);
  std::string nodes = "\146\0\1\0\0\0"s;
  for (char i = 0; i < 102; ++i) {
    strings += "\106" + std::string(60, '.') + std::string(10, i);
    classes += {static_cast<char>(i + 2), '\0'};
    nodes += i < 101 ? std::string{static_cast<char>(i + 2), i > 0 ? '\2' : '\1', '\0', '\0'} : "";
  }
  nodes.resize(818);
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  const std::string longName = std::string(60, '.') + std::string(4, '\0');
  const std::string index = strings + "\0"s + classes + "\0\1\0\0\0\xB2\6"s + nodes;
  EXPECT_EQ(tryToRead(DatabaseBytes({}, index).join()), "");
  ASSERT_EQ(findings.size(), 101U);
  EXPECT_EQ(findings[0].text,
            "Fields of class DrawableCollection are unknown here and are left out of 1 node: " +
                repeat(longName + "..., ", 7) + longName + "... and 1 more");
  EXPECT_EQ(findings[1].text,
            "A node of class " + longName + "..., which is unknown here, is left out with all that it owns");
  EXPECT_EQ(findings[100].text, "There are more classes and fields that are unknown here");
}

/// Of a version whose opacity is another by default.
TEST_F(DatabaseDamageTest, TakesTheDefaultsOfTheFile) {
  DatabaseBytes changed(bytes);
  const std::string rowToDefault("\x05\x08\0\0\0\0\0\0", 8);
  changed.replaceInIndex(rowToDefault + "\xF0\x3F", rowToDefault + "\xD0\x3F");
  Ptr<Node> read;
  ASSERT_EQ(tryToRead(changed.join(), &read), "");
  EXPECT_EQ(surfaceOf(static_cast<lum::SceneNode&>(*read)).getColorAttributes()->getOpacity(), 0.25);
}

TEST_F(DatabaseDamageTest, SaysWhatIsWrong) {
  const auto withHeader = [this](const std::string& text, const std::string& other) {
    std::string changed = bytes;
    return changed.replace(changed.find(text), text.size(), other);
  };
  const auto withoutBlankBefore = [](std::string text, std::size_t end) { return text.erase(end - 1, 1); };
  std::string brokenArray = bytes;
  brokenArray[256] = static_cast<char>(brokenArray[256] ^ 1);
  const std::pair<std::string, const char*> cases[] = {
      {"{}", "too short"},
      {"x" + bytes.substr(1), "does not begin with a header"},
      {withoutBlankBefore(" " + bytes, 256), "does not begin with a header"},
      {withoutBlankBefore(bytes.substr(0, 256) + " " + bytes.substr(256), 256),
       "does not begin with a header"},
      {withHeader("scene-graph", "other-graph"), "does not say that it is a scene-graph database"},
      {withHeader("\"version\": 2", "\"version\": 0"), "of version 0"},
      {withHeader("\"version\": 2", "\"version\": 3"), "of version 3"},
      {bytes + "more", "not at the end of the file"},
      {bytes.substr(0, bytes.size() - 1), "truncated"},
      {bytes.substr(0, bytes.size() - 1) + '\x7F', "index is damaged"},
      {brokenArray, ".sdb: Record 0: Array 0 \"Points\": hash mismatch"},
  };
  for (const auto& [content, message] : cases) {
    EXPECT_THAT(tryToRead(content), HasSubstr(message));
    EXPECT_EQ(isDatabase(content), content == brokenArray) << message;
  }
  EXPECT_THROW(lum::SDBReader(wide(folder / "none.sdb")), FileError);
  for (const std::filesystem::path& irregular : {folder.path(), std::filesystem::path("/dev/null")}) {
    EXPECT_THAT([&] { const lum::SDBReader reader(wide(irregular)); },
                testing::ThrowsMessage<FileError>(HasSubstr("It is not a regular file")));
  }
  writeFile(path, bytes);
  EXPECT_THROW(lum::SDBReader(wide(path) + L'\0'), FileError);
  std::istream unseekable(nullptr);
  EXPECT_THAT([&] { const lum::SDBReader reader(unseekable); },
              testing::ThrowsMessage<FileError>(HasSubstr("The stream is not seekable")));
  lum::SDBReader reader(wide(path));
  EXPECT_THROW(reader.readNode(1), FileError);
  EXPECT_THROW(reader.checkArray(reader.getArrays().size()), FileError);
  std::vector<std::string> faults;
  reader.checkRecord(1, [&faults](const std::string& fault) { faults.push_back(fault); });
  EXPECT_THAT(faults, testing::ElementsAre(HasSubstr("Record 1: There is no number 1")));
}

TEST_F(DatabaseDamageTest, ReportsADamagedArrayOfSeveralRecordsOnce) {
  lum::SDBWriter writer;
  int number = 0;
  writer.open(wide(path), false, false);
  writer.addRecord("", "", "", *scene, number);
  writer.addRecord("", "", "", *scene, number);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  std::string wrong = readFile(path);
  wrong[256] = static_cast<char>(wrong[256] ^ 1);
  writeFile(path, wrong);
  lum::SDBReader reader(wide(path));
  std::vector<std::string> faults;
  for (const std::size_t record : {0U, 1U}) {
    EXPECT_FALSE(reader.checkRecord(record, [&](const std::string& fault) { faults.push_back(fault); }));
  }
  EXPECT_THAT(faults, testing::ElementsAre(HasSubstr(".sdb: Array 0 \"Points\": hash mismatch")));
}

/// Once, when no record is left that may have them.
TEST_F(DatabaseDamageTest, ReportsArraysThatNoRecordHas) {
  using namespace std::literals;
  const std::string row = "\2\1\1\2"s + std::string(8, '\0');
  const auto indexOf = [&](const std::string& lists, const std::string& classes, int records) {
    return "\2\22DrawableCollection\6orphan"s + lists + classes + "\2"s + row + row + "\0\0"s +
           static_cast<char>(records) + repeat("\0\0\0\14\1\0\1\0\0"s + std::string(7, '\0'), records);
  };
  const std::string known = "\1\0\0"s;
  std::string ofVersion1 = DatabaseBytes(std::string(65, 'x'), indexOf("", known, 1)).join();
  ofVersion1.replace(ofVersion1.find("\"version\": 2"), 12, "\"version\": 1");
  const auto join = [&](const std::string& index) {
    return DatabaseBytes(std::string(65, 'x'), index).join();
  };
  for (const auto& [content, count] : {std::pair(ofVersion1, 1U),
                                       {join(indexOf("\0"s, known, 0)), 0U},
                                       {join(indexOf("\0"s, known, 2)), 2U}}) {
    writeFile(path, content);
    std::vector<Finding> findings;
    const FindingCapture capture(findings);
    lum::SDBReader reader(wide(path));
    for (unsigned i = 0; i < 2 * count; ++i) {
      EXPECT_EQ(findings.size(), i < 2 * count - 1 ? 0U : 1U);
      reader.readNode(i / 2);
    }
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(describe(findings[0]),
              "lost: Array 0 \"orphan\" and 1 other belong to no node (payload-unused)");
    EXPECT_EQ(reader.getUnusedArrays(), (std::vector<std::size_t>{0, 1}));
  }
  // They may be those of fields that are unknown here.
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  EXPECT_EQ(tryToRead(join(indexOf("\0"s, "\1\0\1\1\17\0"s, 1))), "");
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].code, FindingCode::FIELD_UNKNOWN);
}

// Indexes that no writer makes.
TEST_F(DatabaseDamageTest, SaysWhatIsWrongInTheIndex) {
  using namespace std::literals;
  const std::string strings = "\2\22DrawableCollection\5nodes\0"s;
  const std::string fileClass = "\0\1\1\23\0"s;
  const auto withArrays = [&](const std::string& rowsAndGaps) { return strings + "\0"s + rowsAndGaps; };
  const auto withGraph = [&](const std::string& graph) {
    return strings + "\1"s + fileClass + "\0\1\0\0\0"s + encoded(graph.size()) + graph;
  };
  const std::string two = "\2\0\1\0\0"s;
  const std::string hash(8, '\0');
  const std::string padding(16, '\0');
  const auto power = [](int shift) {
    return std::string(static_cast<std::size_t>(shift / 7), '\x80') + static_cast<char>(1 << shift % 7);
  };
  const std::tuple<std::string, std::string, const char*> cases[] = {
      {"", power(64), "strings: a number is too large"},
      {"", withGraph(power(61) + padding), "nodes: count 2305843009213693952 is too large"},
      {"", strings + "\2"s + fileClass + fileClass, "Duplicate class"},
      {"", withArrays("\1\12\1" + power(61) + "\0"s + hash), "Invalid array shape"},
      {"", "\1\3a\0b\0\0\1\2\1\0\1"s + hash, "The name of array 0 holds a zero byte"},
      {"", withArrays("\1\12\1\1\0"s + hash + "\0"s), "of 8 bytes overlaps the index"},
      {"", withArrays("\1\2\1\0\0"s + hash + power(58)), "overlaps the index"},
      {"x", withArrays("\2\2\1\1\0"s + hash + "\2\1\0\0"s + hash + "\0\0"s), "Array 1"},
      {"", withGraph(two + "\1\1\0\0\0"s + padding) + "x", "1 bytes follow the last record"},
      {"", withGraph("\0\0\0"s + padding), "A graph has no root"},
      {"", withGraph(two + "\1\3\0\0\0"s + padding), "Its owner is 2 levels up, but the depth is 1"},
      {"", withGraph(two + "\1\0\0\0"s + padding), "There is more than one root"},
      {"", withGraph("\1\0\1\1\0\0"s + padding), "The first node has an owner"},
      {"", withGraph("\1\0\3\0\0"s + padding), "Class index 2 out of range"},
      {"", withGraph(two + "\1\1\0\0\1\0\0\1"s + padding), "reference in a field of another kind"},
      {"", withGraph(two + "\1\1\0\0\1\0\1\1"s + padding), "reference in a field of another kind"},
      {"", withGraph("\x81\2\0\1\0\0"s + repeat("\1\1\0\0"s, 256) + std::string(1029, '\0')),
       "nested more than 256 nodes deep"},
  };
  for (const auto& [chunks, index, message] : cases) {
    EXPECT_THAT(tryToRead(DatabaseBytes(chunks, index).join()), HasSubstr(message));
  }
}

TEST_F(DatabaseDamageTest, SaysWhichValuesFieldsCannotHave) {
  using namespace std::literals;
  struct Case {
    std::string className;
    std::string field;
    char kind;
    std::string value;
    const char* message;
  };
  const std::string vector(24, '\0');
  const Case cases[] = {
      {"PointScaleAttributes", "pixelSize", 1, "\2", "boolean: index 2 out of range"},
      {"LegendAttributes", "numberOfLabels", 2, "\x80\x80\x80\x80\x20", "4294967296 does not fit in 32 bits"},
      {"TextAttributes", "fontStyle", 3, "\x80\x80\x80\x80\x10", "number: index 4294967296 out of range"},
      {"PointScaleAttributes", "scaleMode", 6, "\x64", "enumeration: index 100 out of range"},
      {"TextAttributes", "text", 7, "\3", "string: index 3 out of range"},
      {"ColorLookupTable", "colorValues", 11, "\1", "list: index 1 out of range"},
      {"ColorAttributes", "colors", 14, "\2\1"s + vector + "\1"s + vector, "Keys are not in order: colors"},
      {"ColorAttributes", "colors", 14, "\2\1"s + vector + "\0"s + vector, "Keys are not in order: Color"},
      {"TriadDrawable", "cameraAttributes", 20, "\1\0\0\0"s,
       "cameraAttributes of TriadDrawable \"\" does not refer"},
      {"TextAttributes", "text", 21, "\0"s, "Unknown field kind 21"},
      {"PolyDataNode", "points", 15, "\0"s, "array: index 0 out of range"},
  };
  const auto text = [](const std::string& content) { return static_cast<char>(content.size()) + content; };
  for (const auto& [className, field, kind, value, message] : cases) {
    const std::string graph = "\1\0\1\0\4"s + value + std::string(8, '\0');
    const std::string index =
        "\3"s + text(className) + text(field) + "\0\0\1\0\1\1"s + kind + "\0\0\1\2\2\2"s + text(graph);
    EXPECT_THAT(tryToRead(DatabaseBytes({}, index).join()), HasSubstr(message));
  }
}

// Small files that would have us fill gigabytes, or work for hours.
TEST_F(DatabaseDamageTest, RefusesWhatIsOutOfProportionToTheFile) {
  using namespace std::literals;
  const std::string name = "\1\5Plane\0"s;
  const std::string large = "\1\x80\x80\x40"s + std::string(1 << 20, 'x') + "\0"s;
  // Strings, lists, classes, arrays and records.
  const std::pair<std::string, const char*> cases[] = {
      {name + "\1\0\x81\10"s + repeat("\0\22\0"s, 1025), "A class has 1025 fields"},
      {name + "\1\0\1\0\13\x81\2"s + std::string(257, 'x'), "A default has 257 bytes"},
      {name + "\x81\10"s + repeat("\0\0"s, 1025), "The file has 1025 classes"},
      {name.substr(0, 7) + "\2\0"s + std::string(16, '\0'), "lists: count 2"},
      {name + "\0\1\11\xFF\xFF\xFF\xFF\7\0\0"s + std::string(8, 'x'),
       "Invalid array shape: 0 tuples of 2147483647 components"},
      {name + "\0\0\2"s + std::string(25, '\0'), "records: count 2"},
      {large + "\0\53"s + repeat("\1\1\0\1\0\0\0\0\0\0\0\0"s, 43), "out of proportion"},
      {large + "\0\0\53"s + repeat("\0\0\0\11"s + std::string(9, '\0'), 43), "out of proportion"},
  };
  for (const auto& [index, message] : cases) {
    EXPECT_THAT(tryToRead(DatabaseBytes({}, index).join()), HasSubstr(message));
  }
  const auto emptyArrays = [&](const std::string& components, int count) {
    const std::string rows = repeat("\11"s + components + "\0\0"s + std::string(8, '\0'), count);
    const std::string index = name + "\0"s + encoded(count) + rows + std::string(count + 1, '\0');
    return tryToRead(DatabaseBytes({}, index).join());
  };
  EXPECT_THAT(emptyArrays("\x80\10", 4000), HasSubstr("out of proportion"));
  EXPECT_THAT(emptyArrays("\1", 100'000), HasSubstr("out of proportion"));
  EXPECT_THAT(emptyArrays("\x80\10", 3000), HasSubstr("the file has 0 records"));
  const auto geometry = make<lum::PolyDataNode>();
  geometry->setNodeDataArray(makeArray("wide", {}, 1025));
  EXPECT_EQ(writeDatabase(path, *geometry), FileIoStatus::WriteError);
}

// Each drawable has attributes with colours, which get nine keys by default.
TEST_F(DatabaseDamageTest, RefusesDefaultsOfTooManyNodes) {
  using namespace std::literals;
  constexpr int COUNT = 50'000;
  std::string strings = "\21\22DrawableCollection\5nodes\17SurfaceDrawable\12attributes"s;
  strings += "\24AttributesCollection\17ColorAttributes\6colors"s;
  std::string keys = "\11"s;
  for (char i = 0; i < 9; ++i) {
    strings += {'\1', static_cast<char>('0' + i)};
    keys += static_cast<char>(7 + i) + std::string(24, '\0');
  }
  const std::string classes = "\0\4\0\1\1\23\0\2\1\3\22\0\4\1\1\23\0\5\1\6\16"s + encoded(keys.size()) + keys;
  std::string nodes = "\1\0\0\2\1\0\0\3\1\0\0\4\1\0\0"s + repeat("\2\4\0\0\3\1\0\0\4\1\0\0"s, COUNT - 1);
  nodes.resize(std::size_t{8} * (3 * COUNT + 1));
  const std::string graph = encoded(3 * COUNT + 1) + "\0"s + nodes;
  const std::string index = strings + "\0"s + classes + "\0\1\0\0\0"s + encoded(graph.size()) + graph;
  EXPECT_THAT(tryToRead(DatabaseBytes({}, index).join()), HasSubstr("out of proportion"));
}

// A byte in the file, 24 in memory, and the name.
TEST_F(DatabaseDamageTest, RefusesNodesOfTooManyArrays) {
  using namespace std::literals;
  const auto failure = [&](int nodeCount, int arrayCount, std::size_t nameLength) {
    const std::string arrays = encoded(arrayCount) + std::string(static_cast<std::size_t>(arrayCount), '\0');
    std::string nodes = "\1\0\0\2\1\0\4"s + arrays + repeat("\2\2\0\4"s + arrays, nodeCount - 1);
    nodes.resize(std::max(nodes.size(), std::size_t{8} * static_cast<std::size_t>(nodeCount + 1)));
    const std::string graph = encoded(nodeCount + 1) + "\0"s + nodes + std::string(8, '\0');
    const std::string strings = "\5\17SurfaceDrawable\5nodes\14PolyDataNode\16nodeDataArrays"s +
                                encoded(nameLength) + std::string(nameLength, 'x');
    const std::string classes = "\2\0\1\1\23\0\2\1\3\21\0"s;
    const std::string array = "\1\11\1\0\5"s + std::string(8, '\0') + "\0"s;
    const std::string index = strings + "\0"s + classes + array + "\1\0\0\0"s + encoded(graph.size()) + graph;
    return tryToRead(DatabaseBytes({}, index).join());
  };
  EXPECT_THAT(failure(800, 4000, 1), HasSubstr("out of proportion"));
  EXPECT_THAT(failure(50, 1, 1U << 20U), HasSubstr("out of proportion"));
  EXPECT_THAT(failure(20, 1, 1U << 20U), HasSubstr("hash mismatch"));
}

// Each of the two has 30 nodes with a name of 1 MiB.
TEST_F(DatabaseDamageTest, RefusesRecordsThatAreTogetherOutOfProportion) {
  using namespace std::literals;
  const std::string names = "\36\0\1\0\1\2\1\1\0\1\2"s + repeat("\1\2\0\1\2"s, 28) + std::string(91, '\0');
  const std::string named = "\4\0\22DrawableCollection\x80\x80\x40"s + std::string(1 << 20, 'x') +
                            "\5nodes\0\1\1\1\3\23\0\0\2"s + repeat("\0\0\0\xF2\1"s + names, 2);
  writeFile(path, DatabaseBytes({}, named).join());
  lum::SDBReader reader(wide(path));
  EXPECT_TRUE(reader.readNode(0));
  EXPECT_TRUE(reader.readNode(0));
  EXPECT_THROW(reader.readNode(1), FileError);
}

// Each takes a byte of the file, and many of memory.
TEST_F(DatabaseDamageTest, RefusesMoreArraysThanANodeCanHave) {
  using namespace std::literals;
  const std::string node = "\1\0\1\0\4"s;
  const std::string graph = node + "\x81\x20"s + std::string(4097, '\0') + std::string(9, '\0');
  const std::string index =
      "\2\14PolyDataNode\16nodeDataArrays\0\1\0\1\1\21\0\0\1\0\0\0"s + encoded(graph.size()) + graph;
  EXPECT_THAT(tryToRead(DatabaseBytes({}, index).join()),
              HasSubstr("4097 data arrays, at most 4096 are allowed"));
}

TEST_F(DatabaseDamageTest, RefusesCellsOfPairsAndOfFractions) {
  using namespace std::literals;
  vtkNew<vtkPolyData> polyData;
  vtkNew<vtkPoints> points;
  vtkNew<vtkCellArray> cells;
  cells->Use32BitStorage();
  for (vtkIdType i = 0; i < 2; ++i) {
    points->InsertNextPoint(0, 0, 0);
    cells->InsertNextCell(1, &i);
  }
  polyData->SetPoints(points);
  polyData->SetVerts(cells);
  const auto mesh = make<lum::PolyDataNode>();
  mesh->setPolyData(polyData);
  ASSERT_EQ(writeDatabase(path, *mesh), FileIoStatus::Success);
  const DatabaseBytes sound(readFile(path));
  for (const std::string& other : {"\5\2\1\0"s, "\11\1\2\0"s}) {
    DatabaseBytes changed = sound;
    changed.replaceInIndex("\5\1\2\0"s, other);
    EXPECT_THAT(tryToRead(changed.join()),
                HasSubstr("offsets and connectivity are not integers of one type"));
  }
}

TEST_F(DatabaseDamageTest, RefusesMorePairsOfArraysThanArrays) {
  const auto surface = make<lum::SurfaceDrawable>();
  vtkNew<vtkPoints> points;
  points->InsertNextPoint(0, 0, 0);
  vtkNew<vtkTypeInt32Array> offsets[3];
  vtkNew<vtkTypeInt32Array> vertices[3];
  for (int i = 0; i < 9; ++i) {
    if (i < 3) {
      offsets[i]->InsertNextValue(0);
      offsets[i]->InsertNextValue(1);
      vertices[i]->InsertNextValue(0);
    }
    vtkNew<vtkPolyData> polyData;
    vtkNew<vtkCellArray> cells;
    cells->SetData(offsets[i / 3], vertices[i % 3]);
    polyData->SetPoints(points);
    polyData->SetVerts(cells);
    surface->findOrCreate<lum::PolyDataNode>(std::to_string(i)).setPolyData(polyData);
  }
  EXPECT_EQ(writeDatabase(path, *surface), FileIoStatus::Success);
  EXPECT_THAT(tryToRead(readFile(path)), HasSubstr("more pairs of offsets"));
}

}  // namespace

}  // namespace vemo
