#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkNew.h>
#include <vtkPlaneSource.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

#include <EGL/egl.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

namespace vemo {

namespace {

using Pixel = Picture::Pixel;

/// A square, turned by some degrees about the line of sight, that covers the
/// middle of the picture; unlit.
vtkSmartPointer<vtkActor> makeSquare(double distance, double red, double green, double turn = 0.0) {
  vtkNew<vtkPlaneSource> square;
  square->SetCenter(0, 0, distance);
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputConnection(square->GetOutputPort());
  vtkSmartPointer<vtkActor> actor = vtkSmartPointer<vtkActor>::New();
  actor->SetMapper(mapper);
  actor->RotateZ(turn);
  actor->GetProperty()->SetColor(red, green, 0);
  actor->GetProperty()->LightingOff();
  return actor;
}

Picture draw(EglRenderWindow& window, vtkRenderer& renderer) {
  renderer.GetActiveCamera()->ParallelProjectionOn();
  renderer.GetActiveCamera()->SetParallelScale(1);
  window.AddRenderer(&renderer);
  window.Render();
  return Picture::of(window);
}

TEST(EglRenderWindow, DrawsSmoothEdgesThroughMultisampling) {
  const auto window = EglRenderWindow::open(64, 64);
  window->SetMultiSamples(8);
  vtkNew<vtkRenderer> renderer;
  renderer->AddActor(makeSquare(0, 1, 0, 30));
  const Picture picture = draw(*window, *renderer);
  EXPECT_EQ(picture.at(32, 32), (Pixel{255, 0, 0}));
  EXPECT_EQ(picture.at(1, 1), (Pixel{0, 0, 0}));
  std::set<int> reds;
  for (int column = 0; column < 64; ++column) {
    reds.insert(picture.at(column, 20)[0]);
  }
  EXPECT_GT(reds.size(), 2U) << "the turned square's edge has no tones between inside and outside";
}

TEST(EglRenderWindow, PeelsTranslucentLayersWhateverTheirOrder) {
  const auto drawInOrder = [](bool nearFirst) {
    const auto window = EglRenderWindow::open(32, 32);
    window->SetMultiSamples(0);
    window->SetAlphaBitPlanes(1);
    vtkNew<vtkRenderer> renderer;
    renderer->SetUseDepthPeeling(1);
    renderer->SetOcclusionRatio(0);
    for (const bool isNear : {nearFirst, !nearFirst}) {
      const auto square = isNear ? makeSquare(0.2, 1, 0) : makeSquare(-0.2, 0, 1);
      square->GetProperty()->SetOpacity(0.5);
      renderer->AddActor(square);
    }
    return draw(*window, *renderer).at(16, 16);
  };
  const Pixel seen = drawInOrder(true);
  EXPECT_NEAR(seen[0], 128, 2);
  EXPECT_NEAR(seen[1], 64, 2);
  EXPECT_EQ(drawInOrder(false), seen);
}

TEST(EglRenderWindow, ServesSeveralWindowsInTurn) {
  const auto first = EglRenderWindow::open(16, 16);
  vtkNew<vtkRenderer> renderer;
  renderer->AddActor(makeSquare(0, 0, 1));
  { EglRenderWindow::open(16, 16)->Render(); }
  EXPECT_EQ(draw(*first, *renderer).at(8, 8), (Pixel{0, 255, 0}));
}

/// Runs in a process of its own: drivers are looked up once.
TEST(EglRenderWindowDeathTest, SaysWhenThereIsNoOpenGl) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        setenv("__EGL_VENDOR_LIBRARY_DIRS", "/nonexistent", 1);
        try {
          EglRenderWindow::open(8, 8);
          std::exit(1);
        } catch (const RenderingUnavailable& error) {
          std::exit(std::string_view(error.what()).find("OpenGL") == std::string_view::npos ? 2 : 0);
        }
      },
      testing::ExitedWithCode(0), "^$");
}

}  // namespace

}  // namespace vemo
