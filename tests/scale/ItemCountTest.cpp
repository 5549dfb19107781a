// The work for a scene grows as its items do. Allocations are counted: unlike
// time they are the same on every machine.

#include "Allocations.h"
#include "support/ArchiveBuilder.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"
#include <vemo/import/SceneConverter.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace vemo {

namespace {

/// How items are spread over a scene of so many.
struct Layout {
  const char* description;
  std::size_t (*assemblyCount)(std::size_t items);
  /// The name of an item in its assembly.
  std::string (*nameOf)(std::size_t number);
};

std::string ownName(std::size_t number) {
  return "item " + std::to_string(number);
}

const Layout LAYOUTS[] = {
    {"one assembly", [](std::size_t) { return std::size_t{1}; }, ownName},
    {"many assemblies", [](std::size_t items) { return items / 2; }, ownName},
    {"one name", [](std::size_t) { return std::size_t{1}; }, [](std::size_t) { return std::string("same"); }},
};

std::string xmlOf(const Layout& layout, std::size_t items) {
  const std::size_t assemblies = layout.assemblyCount(items);
  std::string xml = R"(<scene name="s" visibility="1" background="000000ff">)";
  for (std::size_t assembly = 0; assembly < assemblies; ++assembly) {
    xml += "<assembly name=\"assembly " + std::to_string(assembly) + R"(" visibility="1">)";
    for (std::size_t i = 0; i < items / assemblies; ++i) {
      xml +=
          "<geometry name=\"" + layout.nameOf(i) +
          R"(" visibility="1" lineColor="000000ff" faceColor="c0c0c0ff" showFaces="true" points="p" polys="c"/>)";
    }
    xml += "</assembly>";
  }
  return xml + "</scene>";
}

class ItemCountTest : public testing::TestWithParam<Layout> {
 protected:
  std::wstring database() const { return wide(_folder / "a.sdb"); }

  void convert(std::size_t items) const {
    ArchiveBuilder()
        .text("scene.xml", xmlOf(GetParam(), items))
        .floats("p", {0, 0, 0, 1, 0, 0, 0, 1, 0})
        .ints("c", {3, 0, 1, 2})
        .write(_folder / "a.zip");
    SceneConverter(wide(_folder / "a.zip"), database()).run();
  }

  std::size_t readMeshes() const {
    const auto root = lum::SDBReader(database()).readNode(0);
    std::size_t meshes = 0;
    lum::forEachNodeOf<lum::PolyDataNode>(*root, [&meshes](const auto&) { ++meshes; });
    return meshes;
  }

  TemporaryFolder _folder;
};

/// Four times the items must cost four times as much, but for what every scene
/// costs and for containers that grow in steps.
void expectLinear(const std::function<Allocations(std::size_t items)>& measure) {
  constexpr std::size_t FEW = 400;
  constexpr double TOLERANCE = 1.5;
  measure(FEW);  // What is made once for the process.
  const Allocations few = measure(FEW);
  const Allocations many = measure(4 * FEW);
  EXPECT_LT(static_cast<double>(many.count), 4 * TOLERANCE * static_cast<double>(few.count));
  EXPECT_LT(static_cast<double>(many.bytes), 4 * TOLERANCE * static_cast<double>(few.bytes));
}

TEST_P(ItemCountTest, ConvertingCostsWhatTheItemsCost) {
  expectLinear([this](std::size_t items) {
    const Allocations before = Allocations::soFar();
    convert(items);
    return Allocations::soFar() - before;
  });
}

TEST_P(ItemCountTest, ReadingADatabaseCostsWhatTheItemsCost) {
  expectLinear([this](std::size_t items) {
    convert(items);
    const Allocations before = Allocations::soFar();
    EXPECT_EQ(readMeshes(), items);
    return Allocations::soFar() - before;
  });
}

/// A scene of geometries that share nothing.
void writeTinyGeometries(const std::filesystem::path& file, std::size_t count) {
  ArchiveBuilder archive;
  std::string xml = R"(<scene name="s" visibility="1" background="000000ff">)";
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    archive.floats("p" + number, {0, 0, 0, 1, 0, 0, 0, 1, 0}).ints("c" + number, {3, 0, 1, 2});
    xml += "<geometry name=\"" + number +
           R"(" visibility="1" lineColor="000000ff" faceColor="c0c0c0ff" showFaces="true" points="p)" +
           number + "\" polys=\"c" + number + "\"/>";
  }
  archive.text("scene.xml", xml + "</scene>").write(file);
}

/// While nothing but the scene graph is needed: a poly data for each would alone take 3 KB more.
TEST(TinyGeometriesTest, TakeTheMemoryOfTheirNodesAndArrays) {
  constexpr std::size_t FEW = 400;
  constexpr std::int64_t MOST_BYTES = 6500;
  const TemporaryFolder folder;
  const auto measure = [&folder](std::size_t count) {
    writeTinyGeometries(folder / "a.zip", count);
    SceneConverter converter(wide(folder / "a.zip"), wide(folder / "a.sdb"));
    std::int64_t bytes = 0;
    converter.setVerifier([&bytes, before = Allocations::current()](lum::SceneNode&, const std::wstring&) {
      bytes = Allocations::current() - before;
    });
    converter.run();
    return bytes;
  };
  measure(FEW);  // What is made once for the process.
  const std::int64_t few = measure(FEW);
  EXPECT_GT(few, 0);
  EXPECT_LT(measure(2 * FEW) - few, static_cast<std::int64_t>(FEW) * MOST_BYTES);
}

INSTANTIATE_TEST_SUITE_P(Layouts, ItemCountTest, testing::ValuesIn(LAYOUTS), [](const auto& parameter) {
  std::string name = parameter.param.description;
  std::ranges::replace(name, ' ', '_');
  return name;
});

}  // namespace

}  // namespace vemo
