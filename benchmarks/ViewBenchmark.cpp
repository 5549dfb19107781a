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

void openView(benchmark::State& state) {
  const auto scene = makeManyItems(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    const auto window = EglRenderWindow::open(SIZE, SIZE);
    SceneRenderer renderer(*scene);
    renderer.addTo(*window, 0);
    window->Render();
  }
}
BENCHMARK(openView)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// What the scene shows as one mesh, drawn by VTK alone: what cannot be undercut.
vtkSmartPointer<vtkRenderer> makeOneMesh(lum::SceneNode& scene) {
  vtkNew<vtkAppendPolyData> all;
  for (const auto& assembly : scene.getModelCanvas().getDrawableCollection().getNodes()) {
    for (const auto& surface : dynamic_cast<const lum::CollectionNode&>(*assembly).getNodes()) {
      const auto& parts = dynamic_cast<const lum::CollectionNode&>(*surface);
      all->AddInputData(parts.find<lum::PolyDataNode>()->getPolyData());
    }
  }
  all->Update();
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(all->GetOutput());
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->GetProperty()->EdgeVisibilityOn();
  actor->GetProperty()->SetLineWidth(2.0F);
  auto renderer = vtkSmartPointer<vtkRenderer>::New();
  renderer->AddActor(actor);
  return renderer;
}

void openAsOneMesh(benchmark::State& state) {
  const auto scene = makeManyItems(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    const auto window = EglRenderWindow::open(SIZE, SIZE);
    window->AddRenderer(makeOneMesh(*scene));
    window->Render();
  }
}
BENCHMARK(openAsOneMesh)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void redrawOneMesh(benchmark::State& state) {
  const auto scene = makeManyItems(state.range(0));
  const auto window = EglRenderWindow::open(SIZE, SIZE);
  window->AddRenderer(makeOneMesh(*scene));
  window->Render();
  for ([[maybe_unused]] const auto _ : state) {
    window->Render();
  }
}
BENCHMARK(redrawOneMesh)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

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
  vtkSmartPointer<EglRenderWindow> window = EglRenderWindow::open(SIZE, SIZE);
  SceneRenderer renderer;
};

void redraw(benchmark::State& state) {
  View view(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    view.window->Render();
  }
}
BENCHMARK(redraw)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// One assembly, of 100 items, is hidden or shown, and the picture drawn.
void hideOneAssembly(benchmark::State& state) {
  View view(state.range(0));
  bool isShown = true;
  for ([[maybe_unused]] const auto _ : state) {
    isShown = !isShown;
    view.show(100'000, isShown);
  }
}
BENCHMARK(hideOneAssembly)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void hideEverySecondAssembly(benchmark::State& state) {
  View view(state.range(0));
  bool isShown = true;
  for ([[maybe_unused]] const auto _ : state) {
    isShown = !isShown;
    view.show(2, isShown);
  }
}
BENCHMARK(hideEverySecondAssembly)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void pick(benchmark::State& state) {
  constexpr int BESIDE_CENTER = SIZE / 2 + 1;
  View view(state.range(0));
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(view.renderer.pick({BESIDE_CENTER, BESIDE_CENTER}));
  }
}
BENCHMARK(pick)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
