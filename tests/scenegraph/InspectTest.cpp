// What programs and people are shown of graphs: JSON, texts.

#include "scenegraph/inspect/ArrayRange.h"
#include "support/Expected.h"
#include "support/GraphReader.h"
#include "support/GraphText.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include "support/SmallStack.h"
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/inspect/FieldText.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>

#include <array>
#include <bit>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

namespace vemo {

namespace {

using lum::describeFields;
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

std::string print(const lum::Node& node) {
  return jsonText(node, lum::JsonPrinter::Values::LEFT_OUT);
}

/// Numbers that are not finite are null, and arrays keep their order.
TEST(JsonPrinterTest, PrintsFieldsArraysAndOwnedNodes) {
  const auto scene = makeScene();
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  camera.setPosition({0.1, 1e300, -2.0});
  camera.setQualifiedName("the camera");
  surfaceOf(*scene).getColorAttributes()->setColor("left", {1.0, 0.5, NAN});
  auto& piece = *surfaceOf(*scene).find<lum::PolyDataNode>("second");
  piece.setNodeDataArray(makeArray<vtkUnsignedCharArray>("z", {200, 7, 8}));
  piece.setNodeDataArray(
      makeArray<vtkTypeInt64Array>("a", {std::numeric_limits<vtkTypeInt64>::min(), 1, 2, 3, 4, 5}, 2));
  piece.setNodeDataArray(makeArray("small", {0.1F, 16777216.0F, 1e-7F}));
  expectGraph(*scene, "scene.json");
  EXPECT_EQ(print(*scene).find("\"values\""), std::string::npos);
}

TEST(JsonPrinterTest, NamesTheNodesReferredTo) {
  const auto scene = makeScene();
  auto& triad = triadOf(*scene);
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  const auto expectReference = [](const lum::Node& printed, const json& reference) {
    EXPECT_THAT(json::parse(print(printed)).dump(), HasSubstr("\"cameraAttributes\":" + reference.dump()));
  };
  const auto expectPath = [&](const std::string& path) { expectReference(*scene, {{"reference", path}}); };
  expectPath("ModelCanvas/AttributesCollection/CameraAttributes");
  camera.setName("a/b~");
  expectPath("ModelCanvas/AttributesCollection/a~1b~0");
  camera.setName("");
  scene->getOrientationCanvas().setName("ModelCanvas");
  expectPath("ModelCanvas/AttributesCollection/~e");
  triad.setCameraAttributes(&scene->getOrientationCanvas().getCameraAttributes());
  expectPath("ModelCanvas~#2/AttributesCollection/CameraAttributes");
  expectReference(triad, {{"reference", nullptr}});
  triad.setCameraAttributes(nullptr);
  expectReference(triad, nullptr);
}

TEST(JsonPrinterTest, PrintsTheDeepestGraphOnASmallStack) {
  std::string text;
  runOnSmallStack([&] { text = print(*makeChain(lum::Node::MAX_DEPTH)); });
  json level = json::parse(text);
  int depth = 1;
  for (; !level["nodes"].empty(); ++depth) {
    level = json(level["nodes"][0]);
  }
  EXPECT_EQ(depth, lum::Node::MAX_DEPTH);
}

TEST(JsonWriterTest, WritesTextsAndNumbersThatReadersUnderstand) {
  std::ostringstream out;
  lum::JsonWriter writer(out);
  writer.beginArray(lum::JsonWriter::Layout::ONE_LINE);
  writer.value("\"\\/\n\t\x01\x7F");
  writer.value("caf\xC3\xA9 \xFF\xC3(\xED\xA0\x80");
  writer.value(-0.0);
  writer.value(0.1F);
  writer.value(5e-324);
  writer.value(std::numeric_limits<std::uint64_t>::max());
  writer.beginObject();
  writer.endObject();
  writer.endArray();
  writer.finish();
  EXPECT_EQ(out.str(),
            "[\"\\\"\\\\/\\n\\t\\u0001\x7F\", "
            "\"caf\xC3\xA9 \xEF\xBF\xBD\xEF\xBF\xBD(\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\", "
            "-0.0, 0.1, 5e-324, 18446744073709551615, {}]\n");
  EXPECT_TRUE(json::accept(out.str()));
}

TEST(FieldTextTest, ShowsFieldsToPeople) {
  expectCases("field-texts.txt", [](const std::string& attributes) {
    const auto scene = make<lum::SceneNode>();
    addNodes(*scene, attributes);
    std::string text;
    for (const auto& node : scene->getModelCanvas().getAttributesCollection().getNodes()) {
      text += describeFields(*node) + "\n";
    }
    return text;
  });
  const auto colors = make<lum::ColorAttributes>();
  colors->setColorMode(static_cast<lum::ColorMode>(7));
  EXPECT_THAT(describeFields(*colors), StartsWith("colorMode 7,"));
  const auto table = make<lum::ColorLookupTable>();
  table->setColorValues(std::vector<double>(4));
  EXPECT_THAT(describeFields(*table), StartsWith("colorValues (0, 0, 0, 0), numColor 0, "));
  table->setColorValues(std::vector<double>(1234));
  EXPECT_THAT(describeFields(*table), StartsWith("colorValues 1,234 numbers, "));
}

TEST(ArrayRangeTest, IsThatOfVtkForEachComponent) {
  constexpr float INF = std::numeric_limits<float>::infinity();
  constexpr float MAX = std::numeric_limits<float>::max();
  std::vector<float> many(100, 2.0F);
  many[7] = -5;
  many[97] = 9;
  std::vector<float> zeros(25, 0.0F);
  zeros[0] = zeros[14] = -0.0F;
  std::vector<float> infinite = many;
  infinite[50] = INF;
  infinite[51] = NAN;
  const std::vector<std::vector<float>> cases = {
      {},
      many,
      zeros,
      infinite,
      {1, -2, 3, 4, 5, -6},
      {NAN, INF, -INF, NAN, 7, INF, -3, 2, -INF, NAN, 8, 1},
      {MAX, -MAX, MAX, MAX, -MAX, MAX},
      {-INF, NAN, INF, -INF, NAN, INF},
  };
  for (const auto& values : cases) {
    for (const int components : {1, 2, 3}) {
      const auto array = makeArray("a", values, components);
      const auto ranges = lum::finiteRanges(*array);
      ASSERT_EQ(ranges.size(), static_cast<std::size_t>(components));
      for (int component = 0; component < components; ++component) {
        std::array<double, 2> expected{};
        array->GetFiniteRange(expected.data(), component);
        const auto [least, greatest] = ranges[static_cast<std::size_t>(component)];
        EXPECT_EQ(least <= greatest, expected[0] <= expected[1]) << values.size() << ' ' << component;
        if (least <= greatest) {
          // With the sign of zero.
          using Bits = std::array<std::uint64_t, 2>;
          EXPECT_EQ(std::bit_cast<Bits>(std::array{least, greatest}), std::bit_cast<Bits>(expected));
        }
      }
    }
  }
}

}  // namespace

}  // namespace vemo
