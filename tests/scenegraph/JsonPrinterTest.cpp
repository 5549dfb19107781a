#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>
#include <vemo/scenegraph/inspect/JsonPrinter.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <vtkCellArray.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkTypeInt64Array.h>
#include <vtkUnsignedCharArray.h>

#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <pthread.h>
#include <sstream>

namespace vemo {

namespace {

using nlohmann::json;
using Values = lum::JsonPrinter::Values;

template <class T>
lum::Ptr<T> make(const std::string& name) {
  lum::Ptr<T> node(new T(lum::ClassNameNodeInitializer(T::getClassName())));
  node->setName(name);
  return node;
}

std::string print(const lum::Node& node, Values values = Values::LEFT_OUT) {
  std::ostringstream out;
  lum::JsonWriter writer(out);
  lum::JsonPrinter(writer, values).print(node);
  writer.finish();
  return out.str();
}

json parse(const lum::Node& node, Values values = Values::LEFT_OUT) {
  return json::parse(print(node, values));
}

template <class Array>
vtkSmartPointer<Array> makeArray(const char* name, int components,
                                 const std::vector<typename Array::ValueType>& values) {
  auto array = vtkSmartPointer<Array>::New();
  array->SetName(name);
  array->SetNumberOfComponents(components);
  array->SetNumberOfValues(static_cast<vtkIdType>(values.size()));
  std::copy(values.begin(), values.end(), array->GetPointer(0));
  return array;
}

TEST(JsonPrinterTest, PrintsFieldsAndOwnedNodes) {
  const auto scene = make<lum::SceneNode>("all of it");
  auto& camera = scene->getModelCanvas().getCameraAttributes();
  camera.setPosition({0.1, 1e300, -2.0});
  camera.setQualifiedName("the camera");
  auto& colors = scene->getModelCanvas().getDrawableCollection().findOrCreate<lum::SurfaceDrawable>("wing");
  colors.getColorAttributes()->setColor("left", {1.0, 0.5, std::numeric_limits<double>::quiet_NaN()});

  const json printed = parse(*scene);
  EXPECT_EQ(printed["class"], "SceneNode");
  EXPECT_EQ(printed["name"], "all of it");
  EXPECT_FALSE(printed.contains("qualifiedName"));
  EXPECT_EQ(printed["fields"], json::object());
  const json& canvas = printed["nodes"][0];
  EXPECT_EQ(canvas["name"], "ModelCanvas");
  EXPECT_EQ(canvas["nodes"][0]["class"], "AttributesCollection");
  EXPECT_EQ(canvas["nodes"][0]["nodes"][0], json::parse(R"({
      "class": "CameraAttributes", "name": "CameraAttributes", "qualifiedName": "the camera",
      "fields": {"position": [0.1, 1e300, -2], "focalPoint": [0, 0, 0], "viewUp": [0, 1, 0],
                 "projectionMode": 0, "parallelScale": null},
      "nodes": []})"));
  const json& attributes = canvas["nodes"][1]["nodes"][0]["nodes"][0]["nodes"][0];
  EXPECT_EQ(attributes["fields"], json::parse(R"({"colorMode": 0, "color": null, "opacity": 1,
                                                  "colors": {"left": [1, 0.5, null]}})"));
}

TEST(JsonPrinterTest, PrintsArrays) {
  constexpr float NAN_VALUE = std::numeric_limits<float>::quiet_NaN();
  const auto node = make<lum::PolyDataNode>("piece");
  vtkNew<vtkPolyData> polyData;
  vtkNew<vtkPoints> points;
  points->SetData(makeArray<vtkFloatArray>("Points", 3, {0.1F, NAN_VALUE, -3.0F, 0.0F, 16777216.0F, 1e-7F}));
  polyData->SetPoints(points);
  vtkNew<vtkCellArray> lines;
  lines->Use32BitStorage();
  lines->InsertNextCell({1, 0});
  polyData->SetLines(lines);
  node->setPolyData(polyData);
  node->setNodeDataArray(makeArray<vtkUnsignedCharArray>("z", 1, {200, 7}));
  node->setNodeDataArray(makeArray<vtkTypeInt64Array>("a", 2, {std::numeric_limits<vtkTypeInt64>::min(), 1}));
  node->setCellDataArray(makeArray<vtkDoubleArray>("none", 1, {std::numeric_limits<double>::infinity()}));

  const std::string text = print(*node, Values::SHOWN);
  const json fields = json::parse(text)["fields"];
  EXPECT_EQ(fields["points"], json::parse(R"({"type": "float32", "components": 3, "tuples": 2,
      "range": [-3, 16777216], "values": [0.1, null, -3, 0, 16777216, 1e-7]})"));
  EXPECT_EQ(fields["verts"], nullptr);
  EXPECT_EQ(fields["lines"], json::parse(R"({"cells": 1,
      "offsets": {"type": "int32", "components": 1, "tuples": 2, "range": [0, 2], "values": [0, 2]},
      "connectivity": {"type": "int32", "components": 1, "tuples": 2, "range": [0, 1], "values": [1, 0]}})"));
  EXPECT_EQ(fields["nodeDataArrays"]["z"]["type"], "uint8");
  EXPECT_EQ(fields["nodeDataArrays"]["z"]["range"], json::parse("[7, 200]"));
  EXPECT_EQ(fields["nodeDataArrays"]["a"]["values"], json::parse("[-9223372036854775808, 1]"));
  EXPECT_EQ(fields["cellDataArrays"]["none"]["range"], nullptr);
  EXPECT_LT(text.find("\"z\""), text.find("\"a\"")) << "arrays keep their order";
  EXPECT_FALSE(parse(*node)["fields"]["points"].contains("values"));
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
  const auto root = make<lum::DrawableCollection>("root");
  lum::DrawableCollection* deepest = &*root;
  for (int depth = 1; depth < lum::Node::MAXIMUM_DEPTH; ++depth) {
    deepest = &deepest->findOrCreate<lum::DrawableCollection>();
  }
  struct Work {
    const lum::Node& node;
    std::string text;
  } work{*root, {}};
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, 256 * 1024);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    static_cast<Work*>(argument)->text = print(static_cast<Work*>(argument)->node);
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  json level = json::parse(work.text);
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
