#include "support/Expected.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include "support/SmallStack.h"
#include <vemo/scenegraph/inspect/JsonPrinter.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

namespace vemo {

namespace {

using nlohmann::json;
std::string print(const lum::Node& node) {
  std::ostringstream out;
  lum::JsonWriter writer(out);
  lum::JsonPrinter(writer, lum::JsonPrinter::Values::LEFT_OUT).print(node);
  writer.finish();
  return out.str();
}

json parse(const lum::Node& node) {
  return json::parse(print(node));
}

/// Numbers that are not finite are null, and arrays keep their order.
TEST(JsonPrinterTest, PrintsFieldsArraysAndOwnedNodes) {
  const auto scene = makeScene();
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  camera.setPosition({0.1, 1e300, -2.0});
  camera.setQualifiedName("the camera");
  surfaceOf(*scene).getColorAttributes()->setColor("left",
                                                   {1.0, 0.5, std::numeric_limits<double>::quiet_NaN()});
  auto& piece = *surfaceOf(*scene).find<lum::PolyDataNode>("second");
  piece.setNodeDataArray(makeArray<vtkUnsignedCharArray>("z", {200, 7, 8}));
  piece.setNodeDataArray(
      makeArray<vtkTypeInt64Array>("a", {std::numeric_limits<vtkTypeInt64>::min(), 1, 2, 3, 4, 5}, 2));
  piece.setNodeDataArray(makeArray("small", {0.1F, 16777216.0F, 1e-7F}));
  expectGraph(*scene, "scene.json");
  EXPECT_EQ(print(*scene).find("\"values\""), std::string::npos);
}

TEST(JsonPrinterTest, NamesTheNodesReferredTo) {
  const auto scene = make<lum::SceneNode>("scene");
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  auto& drawables = scene->getOrientationCanvas().getDrawableCollection();
  const auto triad = make<lum::TriadDrawable>("triad");
  triad->setCameraAttributes(&camera);
  drawables.addNode(*triad);
  const auto reference = [&] {
    return parse(*scene)["nodes"][1]["nodes"][0]["nodes"][0]["fields"]["cameraAttributes"];
  };
  const auto refersTo = [](const std::string& path) { return json{{"reference", path}}; };

  EXPECT_EQ(reference(), refersTo("ModelCanvas/AttributesCollection/CameraAttributes"));
  camera.setName("a/b~");
  EXPECT_EQ(reference(), refersTo("ModelCanvas/AttributesCollection/a~1b~0"));
  camera.setName("");
  scene->getOrientationCanvas().setName("ModelCanvas");
  EXPECT_EQ(reference(), refersTo("ModelCanvas/AttributesCollection/~e"));
  triad->setCameraAttributes(&scene->getOrientationCanvas().getCameraAttributes());
  EXPECT_EQ(parse(*scene)["nodes"][1]["nodes"][1]["nodes"][0]["fields"]["cameraAttributes"],
            refersTo("ModelCanvas~#2/AttributesCollection/CameraAttributes"));
  EXPECT_EQ(parse(*triad)["fields"]["cameraAttributes"], (json{{"reference", nullptr}}))
      << "outside the printed graph";
  triad->setCameraAttributes(nullptr);
  EXPECT_EQ(parse(*triad)["fields"]["cameraAttributes"], nullptr);
}

TEST(JsonPrinterTest, PrintsTheDeepestGraphOnASmallStack) {
  std::string text;
  runOnSmallStack([&] { text = print(*makeChain(lum::Node::MAXIMUM_DEPTH)); });
  json level = json::parse(text);
  int depth = 1;
  for (; !level["nodes"].empty(); ++depth) {
    level = json(level["nodes"][0]);
  }
  EXPECT_EQ(depth, lum::Node::MAXIMUM_DEPTH);
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

}  // namespace

}  // namespace vemo
