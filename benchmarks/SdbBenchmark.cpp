#include "platform/WidePath.h"
#include "scenegraph/SceneNode.h"
#include "scenegraph/attributes/RenderingAttributes.h"
#include "scenegraph/drawables/GeometryDrawables.h"
#include "scenegraph/io/SDBReader.h"
#include "scenegraph/io/SDBWriter.h"

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

/// A grid of 64 points and 98 triangles with normals.
vtkSmartPointer<vtkPolyData> makePatch() {
  auto patch = vtkSmartPointer<vtkPolyData>::New();
  vtkNew<vtkPoints> points;
  vtkNew<vtkFloatArray> normals;
  normals->SetName("Normals");
  normals->SetNumberOfComponents(3);
  vtkNew<vtkCellArray> polys;
  polys->Use32BitStorage();
  for (vtkIdType i = 0; i < 64; ++i) {
    points->InsertNextPoint(static_cast<double>(i % 8), static_cast<double>(i / 8), 0);
    normals->InsertNextTuple3(0, 0, 1);
    if (i % 8 < 7 && i < 56) {
      polys->InsertNextCell({i, i + 1, i + 9});
      polys->InsertNextCell({i, i + 9, i + 8});
    }
  }
  patch->SetPoints(points);
  patch->SetPolys(polys);
  patch->GetPointData()->AddArray(normals);
  return patch;
}

/// Small geometries as the conversion makes them, 100 to an assembly.
lum::Ptr<lum::SceneNode> makeScene(std::int64_t count) {
  using namespace lum;
  const Ptr<SceneNode> scene(new SceneNode(ClassNameNodeInitializer(SceneNode::getClassName())));
  auto& model = scene->getModelCanvas().getDrawableCollection();
  for (std::int64_t i = 0; i < count; ++i) {
    auto& assembly = model.findOrCreate<DrawableCollection>("assembly " + std::to_string(i / 100));
    auto& surface = assembly.findOrCreate<SurfaceDrawable>("geometry " + std::to_string(i));
    surface.getBaseAttributes().setVisibility(i % 2 == 0, false);
    surface.getColorAttributes()->setColor({0.1, 0.2, static_cast<double>(i)}, false);
    surface.getAttributes<MeshAttributes>().setMeshVisible(true, false);
    surface.getAttributes<LineAttributes>().setLineWidth(2.0);
    auto& geometry = surface.findOrCreate<PolyDataNode>("part " + std::to_string(i));
    geometry.setAttachmentPoint({static_cast<double>(i), 1.0, 2.0}, 0);
    geometry.setPolyData(makePatch());
  }
  return scene;
}

/// A file for one run; gone with it.
struct File {
  ~File() { std::filesystem::remove(path); }
  std::wstring wide() const { return toWidePath(path.native()); }
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("vemo-benchmark-" + std::to_string(getpid()) + ".sdb");
};

void writeDatabase(const File& file, lum::Node& node) {
  lum::SDBWriter writer;
  int number = 0;
  writer.open(file.wide(), false, false);
  writer.addRecord("title", "description", "simUUID", node, number);
  writer.close();
}

void writeSmallGeometries(benchmark::State& state) {
  const auto scene = makeScene(state.range(0));
  const File file;
  for (auto _ : state) {
    writeDatabase(file, *scene);
  }
  lum::SDBReader reader(file.wide());
  const auto arrays = reader.getArrays();
  const auto items = static_cast<double>(state.range(0));
  double arrayBytes = 0;
  for (const auto& array : arrays) {
    arrayBytes += static_cast<double>(array.bytes);
  }
  const std::uint64_t end = arrays.back().offset + arrays.back().bytes;
  state.counters["array bytes/item"] = arrayBytes / items;
  state.counters["index bytes/item"] =
      static_cast<double>(std::filesystem::file_size(file.path) - end) / items;
}
BENCHMARK(writeSmallGeometries)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);

void readSmallGeometries(benchmark::State& state) {
  const File file;
  writeDatabase(file, *makeScene(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(lum::SDBReader(file.wide()).readNode(0));
  }
}
BENCHMARK(readSmallGeometries)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);

}  // namespace
