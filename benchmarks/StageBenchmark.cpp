#include "support/TemporaryFolder.h"
#include "vemoview/import/archive/ReadingLimits.h"
#include "vemoview/import/xml/XmlParser.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <benchmark/benchmark.h>
#include <cstring>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace vemo {

// Single stages of a conversion, each followed by its physical limit: memcpy of as
// many bytes.

namespace {

template <class T>
lum::Ptr<T> make() {
  return lum::Ptr<T>(new T(lum::ClassNameNodeInitializer(T::getClassName())));
}

void reportBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

template <std::size_t (*COUNT_BYTES)()>
void copyAsMany(benchmark::State& state) {
  const std::vector<char> bytes(COUNT_BYTES(), 'a');
  std::vector<char> copy(bytes.size());
  for ([[maybe_unused]] const auto _ : state) {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
  reportBytes(state, bytes.size());
}

// A database of one array.

constexpr vtkIdType ARRAY_POINTS = 4'000'000;

std::size_t bytesOfPoints() {
  return ARRAY_POINTS * 3 * sizeof(float);
}

lum::Ptr<lum::PolyDataNode> makePoints() {
  vtkNew<vtkFloatArray> coordinates;
  coordinates->SetNumberOfComponents(3);
  coordinates->SetNumberOfTuples(ARRAY_POINTS);
  coordinates->FillValue(1.5F);
  vtkNew<vtkPoints> points;
  points->SetData(coordinates);
  vtkNew<vtkPolyData> polyData;
  polyData->SetPoints(points);
  auto node = make<lum::PolyDataNode>();
  node->setPolyData(polyData);
  return node;
}

void writeDatabase(const TemporaryFolder& folder, lum::Node& node) {
  lum::SDBWriter writer;
  int number = 0;
  writer.open(toWidePath((folder / "points.sdb").native()), false, false);
  writer.addRecord("", "", "", node, number);
  writer.close();
}

void write(benchmark::State& state) {
  const TemporaryFolder folder;
  const auto node = makePoints();
  for ([[maybe_unused]] const auto _ : state) {
    writeDatabase(folder, *node);
  }
  reportBytes(state, bytesOfPoints());
}

void read(benchmark::State& state) {
  const TemporaryFolder folder;
  writeDatabase(folder, *makePoints());
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(lum::SDBReader(toWidePath((folder / "points.sdb").native())).readNode(0));
  }
  reportBytes(state, bytesOfPoints());
}

BENCHMARK(write)->Name("stage/write")->Unit(benchmark::kMillisecond);
BENCHMARK(read)->Name("stage/read")->Unit(benchmark::kMillisecond);
BENCHMARK(copyAsMany<bytesOfPoints>)->Name("stage/write, read: memcpy")->Unit(benchmark::kMillisecond);

// Nodes by their names.

std::vector<std::string> makeNames() {
  constexpr int COUNT = 100'000;
  std::vector<std::string> names;
  names.reserve(COUNT);
  for (int i = 0; i < COUNT; ++i) {
    names.push_back(fmt::format("geometry {}", i));
  }
  return names;
}

std::size_t bytesOfNames() {
  std::size_t bytes = 0;
  for (const std::string& name : makeNames()) {
    bytes += name.size();
  }
  return bytes;
}

/// Each name twice: it is created, then found.
void findOrCreate(benchmark::State& state) {
  const auto names = makeNames();
  for ([[maybe_unused]] const auto _ : state) {
    const auto collection = make<lum::DrawableCollection>();
    for (const int round : {0, 1}) {
      for (const std::string& name : names) {
        benchmark::DoNotOptimize(collection->findOrCreate<lum::DrawableCollection>(name));
      }
      benchmark::DoNotOptimize(round);
    }
  }
  reportBytes(state, bytesOfNames());
}

BENCHMARK(findOrCreate)->Name("stage/find or create")->Unit(benchmark::kMillisecond);
BENCHMARK(copyAsMany<bytesOfNames>)->Name("stage/find or create: memcpy")->Unit(benchmark::kMillisecond);

// Elements.

std::string textOfColormap() {
  std::string text = R"(<colormap name="c" min="0" max="1" log="false">)";
  for (unsigned i = 0; i < 0x10000; ++i) {
    text += fmt::format("<rgba>{:06x}ff</rgba>", i);
  }
  return text + "</colormap>";
}

std::string textOfItems() {
  std::string text = "<scene>";
  for (int i = 0; i < 100'000; ++i) {
    text += fmt::format(
        R"(<geometry name="g{}" visibility="1" lineColor="000000ff" faceColor="c0c0c0ff" points="p" polys="c"/>)",
        i);
  }
  return text + "</scene>";
}

template <std::string (*MAKE_TEXT)()>
std::size_t bytesOf() {
  return MAKE_TEXT().size();
}

XmlDocument parse(const std::string& text) {
  return parseXml({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, "scene.xml",
                  ReadingLimits::ofArchive(text.size(), text.size()));
}

void elementTree(benchmark::State& state) {
  const std::string text = textOfItems();
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(parse(text));
  }
  reportBytes(state, text.size());
}

/// From elements to the scene graph.
void colormap(benchmark::State& state) {
  const std::string text = textOfColormap();
  const XmlDocument document = parse(text);
  const auto attributes = make<lum::ScalarAttributes>();
  for ([[maybe_unused]] const auto _ : state) {
    Colormap item("c");
    item.read(*document.root, nullptr);
    item.applyTo(*attributes);
  }
  reportBytes(state, text.size());
}

BENCHMARK(elementTree)->Name("stage/element tree")->Unit(benchmark::kMillisecond);
BENCHMARK(copyAsMany<bytesOf<textOfItems>>)
    ->Name("stage/element tree: memcpy")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(colormap)->Name("stage/colormap")->Unit(benchmark::kMillisecond);
BENCHMARK(copyAsMany<bytesOf<textOfColormap>>)->Name("stage/colormap: memcpy")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
