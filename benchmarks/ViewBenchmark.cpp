#include "ManyItems.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/render/SceneRenderer.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkActor.h>
#include <vtkAppendPolyData.h>
#include <vtkNew.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <benchmark/benchmark.h>

namespace vemo {

namespace {

constexpr int SIZE = 800;

/// VTK alone would draw with several samples a pixel, which takes several times
/// as long in software.
vtkSmartPointer<EglRenderWindow> openWindow() {
  auto window = EglRenderWindow::open(SIZE, SIZE);
  window->SetMultiSamples(0);
  return window;
}

void openView(benchmark::State& state) {
  const auto scene = makeManyItems(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    const auto window = openWindow();
    SceneRenderer renderer(*scene);
    renderer.addTo(*window, 0);
    window->Render();
  }
}
BENCHMARK(openView)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// What the scene shows, as one mesh.
vtkSmartPointer<vtkPolyData> joinMeshes(lum::SceneNode& scene) {
  vtkNew<vtkAppendPolyData> all;
  for (const auto& assembly : scene.getModelCanvas().getDrawableCollection().getNodes()) {
    for (const auto& surface : dynamic_cast<const lum::CollectionNode&>(*assembly).getNodes()) {
      const auto& parts = dynamic_cast<const lum::CollectionNode&>(*surface);
      all->AddInputData(parts.find<lum::PolyDataNode>()->getPolyData());
    }
  }
  all->Update();
  return all->GetOutput();
}

/// Draws a mesh with VTK alone: what cannot be undercut.
vtkSmartPointer<EglRenderWindow> openWithVtk(vtkPolyData& mesh) {
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(&mesh);
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->GetProperty()->EdgeVisibilityOn();
  actor->GetProperty()->SetLineWidth(2.0F);
  vtkNew<vtkRenderer> renderer;
  renderer->AddActor(actor);
  auto window = openWindow();
  window->AddRenderer(renderer);
  window->Render();
  return window;
}

void openAsOneMesh(benchmark::State& state) {
  const auto mesh = joinMeshes(*makeManyItems(state.range(0)));
  for ([[maybe_unused]] const auto _ : state) {
    openWithVtk(*mesh);
  }
}
BENCHMARK(openAsOneMesh)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void redrawOneMesh(benchmark::State& state) {
  const auto window = openWithVtk(*joinMeshes(*makeManyItems(state.range(0))));
  for ([[maybe_unused]] const auto _ : state) {
    window->Render();
  }
}
BENCHMARK(redrawOneMesh)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// A scene that is shown already.
struct View {
  explicit View(std::int64_t count) : scene(makeManyItems(count)), renderer(*scene) {
    renderer.addTo(*window, 0);
    window->Render();
  }

  /// Of every `step`th assembly.
  void show(std::size_t step, bool isShown) {
    const auto assemblies = scene->getModelCanvas().getDrawableCollection().getNodes();
    for (std::size_t i = 0; i < assemblies.size(); i += step) {
      dynamic_cast<lum::Drawable&>(*assemblies[i].get()).getBaseAttributes().setVisibility(isShown, false);
    }
    renderer.followVisibility();
    window->Render();
  }

  lum::Ptr<lum::SceneNode> scene;
  vtkSmartPointer<EglRenderWindow> window = openWindow();
  SceneRenderer renderer;
};

void redraw(benchmark::State& state) {
  View view(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    view.window->Render();
  }
}
BENCHMARK(redraw)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// One assembly, of 100 items, is hidden or shown, and the picture drawn.
void hideOneAssembly(benchmark::State& state) {
  View view(state.range(0));
  bool isShown = true;
  for ([[maybe_unused]] const auto _ : state) {
    isShown = !isShown;
    view.show(100'000, isShown);
  }
}
BENCHMARK(hideOneAssembly)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void hideEverySecondAssembly(benchmark::State& state) {
  View view(state.range(0));
  bool isShown = true;
  for ([[maybe_unused]] const auto _ : state) {
    isShown = !isShown;
    view.show(2, isShown);
  }
}
BENCHMARK(hideEverySecondAssembly)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

void pick(benchmark::State& state) {
  constexpr int BESIDE_CENTER = SIZE / 2 + 1;
  View view(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(view.renderer.pick({BESIDE_CENTER, BESIDE_CENTER}));
  }
}
BENCHMARK(pick)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

}  // namespace

}  // namespace vemo
