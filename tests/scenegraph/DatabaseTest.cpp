#include "support/Databases.h"
#include "support/Files.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkWeakPointer.h>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace vemo {

namespace {

using lum::SDBWriter;
namespace fs = std::filesystem;

TEST(DatabaseTest, HoldsRecordsAndAppends) {
  const TemporaryFolder folder;
  const auto path = wide(folder / "a.sdb");
  const Ptr<Node> nodes[] = {Ptr<Node>(makeScene()), Ptr<Node>(make<lum::Plane>()),
                             Ptr<Node>(make<lum::CameraAttributes>())};
  SDBWriter writer;
  const auto add = [&](int record) {
    int number = -1;
    EXPECT_EQ(writer.addRecord(std::to_string(record), "", std::string(100, 'u'), *nodes[record], number),
              FileIoStatus::Success);
    EXPECT_EQ(number, record);
  };
  ASSERT_EQ(writer.open(path, true, true), FileIoStatus::Success);
  add(0);
  add(1);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  ASSERT_EQ(writer.open(path, true, false), FileIoStatus::Success);
  add(2);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  lum::SDBReader reader(path);
  ASSERT_EQ(reader.getRecords().size(), 3U);
  for (const std::size_t record : {0U, 1U, 2U, 0U}) {
    EXPECT_EQ(reader.getRecords()[record].title, std::to_string(record));
    EXPECT_EQ(reader.getRecords()[record].simUUID, std::string(100, 'u'));
    EXPECT_EQ(firstDifference(*nodes[record], *reader.readNode(record)), "");
  }
  EXPECT_TRUE(reader.getUnusedArrays().empty());
}

TEST(DatabaseTest, ReplacesAFileOnlyIfTheNewOneIsVerified) {
  const TemporaryFolder folder;
  const auto path = wide(folder / "a.sdb");
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *make<lum::Plane>("former")), FileIoStatus::Success);
  const auto nameIn = [](const std::wstring& file) { return lum::SDBReader(file).readNode(0)->getName(); };
  const auto write = [&](const SDBWriter::Verifier& verifier) {
    SDBWriter writer;
    int number = 0;
    ASSERT_EQ(writer.open(path, false, false), FileIoStatus::Success);
    writer.setVerifier(verifier);
    ASSERT_EQ(writer.addRecord("", "", "", *make<lum::Plane>("new"), number), FileIoStatus::Success);
    ASSERT_EQ(writer.close(), FileIoStatus::Success);
  };
  const auto refuse = [&](const std::wstring& temporary) {
    EXPECT_EQ(nameIn(temporary), "new");
    EXPECT_EQ(nameIn(path), "former");
    // What reading it may throw is no failure to write.
    throw lum::io::FileError(FileIoStatus::ReadError, "refused");
  };
  EXPECT_THROW(write(refuse), lum::io::FileError);
  EXPECT_EQ(nameIn(path), "former");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
  write([](const std::wstring&) {});
  EXPECT_EQ(nameIn(path), "new");
}

TEST(DatabaseTest, RefusesGeometryThatDoesNotFitAndGraphsTooDeep) {
  const TemporaryFolder folder;
  const auto node = make<lum::PolyDataNode>("wing");
  node->setPolyData(makeGeometry(false));
  node->setNodeDataArray(makeArray("odd", {1, 2, 3, 4}));
  EXPECT_EQ(writeDatabase(folder / "a.sdb", *node), FileIoStatus::WriteError);
  EXPECT_EQ(writeDatabase(folder / "a.sdb", *makeChain(lum::Node::MAX_DEPTH + 1)), FileIoStatus::WriteError);
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

/// The index of a file of one short record, with this record twice: their count, three numbers of
/// strings, the size of the graph, and the graph are at its end.
std::string withRecordTwice(const std::string& index) {
  constexpr std::size_t HEAD = 5;
  for (std::size_t at = 0; at + HEAD < index.size(); ++at) {
    if (index[at] == 1 && static_cast<unsigned char>(index[at + HEAD - 1]) == index.size() - at - HEAD) {
      return index.substr(0, at) + '\2' + index.substr(at + 1) + index.substr(at + 1);
    }
  }
  ADD_FAILURE() << "the record is not short";
  return index;
}

TEST(DatabaseTest, RecordsShareTheirArrays) {
  const TemporaryFolder folder;
  const auto mesh = make<lum::PolyDataNode>();
  mesh->setPolyData(makeGeometry(false));
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *mesh), FileIoStatus::Success);
  DatabaseBytes bytes(readFile(folder / "a.sdb"));
  bytes.index = withRecordTwice(bytes.index);
  writeFile(folder / "a.sdb", bytes.join());
  SDBWriter writer;
  int number = 0;
  ASSERT_EQ(writer.open(wide(folder / "a.sdb"), true, false), FileIoStatus::Success);
  ASSERT_EQ(writer.addRecord("", "", "", *make<lum::Plane>(), number), FileIoStatus::Success);
  ASSERT_EQ(writer.close(), FileIoStatus::Success);

  lum::SDBReader reader(wide(folder / "a.sdb"));
  const auto pointsOf = [&reader](std::size_t record) {
    return vtkWeakPointer<vtkDataArray>(Ptr<lum::PolyDataNode>(reader.readNode(record))->getPoints());
  };
  const vtkWeakPointer<vtkDataArray> points = pointsOf(0);
  EXPECT_TRUE(points) << "the next record may use them";
  EXPECT_EQ(pointsOf(1), points);
  const Ptr<Node> other = reader.readNode(2);
  EXPECT_FALSE(points) << "it does not";
  const Ptr<lum::PolyDataNode> held(reader.readNode(0));
  static_cast<void>(reader.readNode(2));
  EXPECT_EQ(pointsOf(1), held->getPoints());
}

// Each use of an array takes time, and almost no bytes.
TEST(DatabaseTest, RefusesRecordsThatUseArraysOutOfProportion) {
  const TemporaryFolder folder;
  const auto spheres = make<lum::PointSphereDrawable>();
  const vtkNew<vtkPoints> points;
  points->SetNumberOfPoints(1'000'000);
  const vtkNew<vtkPolyData> mesh;
  mesh->SetPoints(points);
  for (int i = 0; i < 330; ++i) {
    spheres->findOrCreate<lum::PolyDataNode>(std::to_string(i)).setPolyData(mesh);
  }
  SDBWriter writer;
  int number = 0;
  ASSERT_EQ(writer.open(wide(folder / "a.sdb"), false, false), FileIoStatus::Success);
  for (int i = 0; i < 4; ++i) {
    ASSERT_EQ(writer.addRecord("", "", "", *spheres, number), FileIoStatus::Success);
  }
  ASSERT_EQ(writer.close(), FileIoStatus::Success);
  lum::SDBReader reader(wide(folder / "a.sdb"));
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NO_THROW(reader.readNode(0)) << "a record may be read any number of times";
    EXPECT_NO_THROW(reader.readNode(i));
  }
  EXPECT_THROW(reader.readNode(3), lum::io::FileError);
  int faults = 0;
  EXPECT_FALSE(reader.checkRecord(3, [&faults](const std::string& /*fault*/) { ++faults; }));
  EXPECT_EQ(faults, 1);
  EXPECT_NO_THROW(reader.readNode(2)) << "what is refused does not count";
}

/// Only arrays of a name and of the same bytes are shared, and damage is noticed
/// where there is an array to share.
TEST(DatabaseTest, SharesArraysThroughAPool) {
  const TemporaryFolder folder;
  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(makePolyData(std::vector<std::array<float, 3>>(1000), {}));
  for (const char* const name : {"heat", "cold"}) {
    node->setNodeDataArray(makeArray(name, std::vector<float>(1000, 0.5F)));
  }
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *node), FileIoStatus::Success);
  node->setNodeDataArray(makeArray("heat", std::vector<float>(1000, 0.25F)));
  ASSERT_EQ(writeDatabase(folder / "b.sdb", *node), FileIoStatus::Success);
  std::string bytes = readFile(folder / "a.sdb");
  bytes[bytes.find(std::string("\0\0\0\x3F", 4)) + 2000] ^= 1;
  writeFile(folder / "damaged.sdb", bytes);

  lum::ArrayPool pool;
  pool.addAll(*node);
  const auto read = [&](const char* name) {
    return Ptr<lum::PolyDataNode>(lum::SDBReader(wide(folder / name)).readNode(0, lum::NO_SESSION, &pool));
  };
  const auto first = read("a.sdb");
  const auto second = read("b.sdb");
  EXPECT_NE(first->getNodeDataArrays()[0], second->getNodeDataArrays()[0]);
  EXPECT_EQ(first->getNodeDataArrays()[1], second->getNodeDataArrays()[1]);
  EXPECT_EQ(second->getNodeDataArrays()[0], node->getNodeDataArrays()[0]);
  EXPECT_EQ(first->getNodeDataArrays()[0], read("a.sdb")->getNodeDataArrays()[0]);
  EXPECT_EQ(firstDifference(*node, *second), "");
  EXPECT_THROW(read("damaged.sdb"), lum::io::FileError);
}

TEST(DatabaseTest, SharesSmallArraysOfOneNameThroughAPool) {
  const TemporaryFolder folder;
  const auto node = make<lum::PolyDataNode>();
  node->setPolyData(makePolyData(std::vector<std::array<float, 3>>(2), {}));
  for (const char* const name : {"heat", "cold"}) {
    node->setNodeDataArray(makeArray(name, {0.5F, 0.25F}));
  }
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *node), FileIoStatus::Success);
  lum::ArrayPool pool;
  const auto read = [&] {
    return Ptr<lum::PolyDataNode>(lum::SDBReader(wide(folder / "a.sdb")).readNode(0, lum::NO_SESSION, &pool));
  };
  const auto first = read();
  const auto second = read();
  EXPECT_EQ(second->getPoints(), first->getPoints());
  EXPECT_EQ(second->getNodeDataArrays()[0], first->getNodeDataArrays()[0]);
  EXPECT_NE(first->getNodeDataArrays()[0], first->getNodeDataArrays()[1]) << "another name";
  EXPECT_EQ(firstDifference(*node, *second), "");
}

TEST(DatabaseTest, ReadsOnlyTheArraysThatAreWanted) {
  const TemporaryFolder folder;
  const lum::Ptr<lum::SceneNode> scene = makeScene();
  auto& surface = surfaceOf(*scene);
  const auto other = make<lum::PolyDataNode>("other");
  other->setPolyData(makePolyData(std::vector<std::array<float, 3>>(100), {}));
  surface.addNode(*other);
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *scene), FileIoStatus::Success);
  lum::SDBReader reader(wide(folder / "a.sdb"));
  std::uint64_t bytes = 0;
  reader.setArrayFilter([&](Node& node, std::span<const std::size_t> arrays) {
    EXPECT_TRUE(node.getOwner());
    bytes += node.getName() == "other" ? reader.getArrays()[arrays.front()].bytes : 0;
    return node.getName() != "other";
  });
  const Ptr<Node> read = reader.readNode(0);
  EXPECT_EQ(bytes, 1200U);
  const vtkNew<vtkPolyData> nothing;
  other->setPolyData(nothing);
  EXPECT_EQ(firstDifference(*scene, *read), "");
}

TEST(DatabaseTest, LeavesTheOldFileUntilItCloses) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.sdb";
  writeFile(path, "old");
  int number = -1;
  {
    SDBWriter writer;
    ASSERT_EQ(writer.open(wide(path), false, false), FileIoStatus::Success);
    EXPECT_EQ(writer.addRecord("", "", "", *makeScene(), number), FileIoStatus::Success);
    EXPECT_EQ(readFile(path), "old");
  }
  EXPECT_EQ(readFile(path), "old");
  EXPECT_EQ(countFiles(folder.path()), 1);
}

TEST(DatabaseTest, RefusesTargetsThatItMustNotReplace) {
  const TemporaryFolder folder;
  writeFile(folder / "there.sdb", "old");
  SDBWriter writer;
  for (const fs::path& bad : {fs::path("/dev/null"), folder.path(), folder / "no/a.sdb", fs::path()}) {
    EXPECT_EQ(writer.open(wide(bad), false, false), FileIoStatus::WriteError) << bad;
  }
  EXPECT_EQ(writer.open(wide(folder / "there.sdb"), false, true), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(wide(folder / "there.sdb"), true, false), FileIoStatus::UnsupportedFormat);
  int number = -1;
  EXPECT_EQ(writer.addRecord("", "", "", *makeScene(), number), FileIoStatus::WriteError);
  EXPECT_EQ(writer.close(), FileIoStatus::WriteError);
  // One that comes to be there while we write.
  ASSERT_EQ(writer.open(wide(folder / "new.sdb"), false, true), FileIoStatus::Success);
  writeFile(folder / "new.sdb", "other");
  EXPECT_EQ(writer.close(), FileIoStatus::WriteError);
  EXPECT_EQ(readFile(folder / "new.sdb"), "other");
  EXPECT_EQ(readFile(folder / "there.sdb"), "old");
  EXPECT_EQ(countFiles(folder.path()), 2);
}

TEST(DatabaseTest, DiscardsAFileThatDoesNotFitOnTheDisk) {
  const TemporaryFolder folder;
  const auto scene = makeScene();
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *scene), FileIoStatus::Success);
  const std::string whole = readFile(folder / "a.sdb");
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  for (const std::size_t size : {std::size_t{0}, std::size_t{100}, whole.size() / 2, whole.size() - 1}) {
    const rlimit limit{size, unlimited.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const FileIoStatus status = writeDatabase(folder / "a.sdb", *scene);
    setrlimit(RLIMIT_FSIZE, &unlimited);
    EXPECT_EQ(status, FileIoStatus::WriteError) << size;
    EXPECT_EQ(readFile(folder / "a.sdb"), whole);
    EXPECT_EQ(countFiles(folder.path()), 1);
  }
  std::signal(SIGXFSZ, handler);
}

}  // namespace

}  // namespace vemo
