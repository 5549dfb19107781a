#include "render/SceneWindow.h"
#include <vemo/resolve/SceneTooLarge.h>

#include <functional>
#include <gtest/gtest.h>

namespace vemo {

namespace {

/// As many meshes as are drawn in one batch, and everything else that can be shown.
class VisibilityTest : public testing::Test {
 protected:
  static constexpr int MESHES = 40;

  VisibilityTest() {
    for (int i = 0; i < MESHES; ++i) {
      const float left = -0.993F + 0.048F * static_cast<float>(i);
      auto& surface =
          scene.addSurface(makeRectangle(left, left + 0.03F, -0.9F, -0.5F, -0.05F * static_cast<float>(i)),
                           {5 * i / 255.0, 1, 0});
      surface.getAttributes<lum::ContourAttributes>().setContourVisible(i % 2 == 0);
      drawables.push_back(&surface);
    }
    auto& points =
        scene.add<lum::PointSphereDrawable>(makePolyData({{0, 0, 0}, {0.2F, 0, 2}}, {.verts = {{0}, {1}}}));
    points.getAttributes<lum::PointSizeAttributes>().setPointSize(8);
    drawables.push_back(&points);
    auto& text = addOverlay<lum::TextDrawable>();
    text.getAnnotationAttributes().setText("Text");
    text.getTextAttributes().setForegroundColor(0xFFFFFFFF);
    addOverlay<lum::TriadDrawable>().getTriadAttributes();
    auto& legend = addOverlay<lum::LegendDrawable>();
    legend.getLegendAttributes().setTitle("Legend");
    legend.getColorLookupTable();
    legend.getTextAttributes().setForegroundColor(0xFFFFFFFF);
    legend.getPositionAttributes().setPosition({0.7, 0.5, 0}, false);
  }

  template <class Drawable>
  Drawable& addOverlay() {
    auto& drawable = scene.drawables().findOrCreate<Drawable>();
    drawables.push_back(&drawable);
    return drawable;
  }

  void hide(const std::function<bool(std::size_t)>& isHidden) {
    for (std::size_t i = 0; i < drawables.size(); ++i) {
      drawables[i]->getBaseAttributes().setVisibility(!isHidden(i), false);
    }
  }

  RenderScene scene;
  std::vector<lum::Drawable*> drawables;
};

TEST_F(VisibilityTest, IsFollowedAsIfTheSceneWereOpenedAnew) {
  const std::pair<const char*, std::function<bool(std::size_t)>> steps[] = {
      {"some hidden", [](std::size_t i) { return i % 3 == 0; }},
      {"others hidden", [](std::size_t i) { return i % 3 == 1; }},
      {"all hidden", [](std::size_t) { return true; }},
      {"the same again", [](std::size_t i) { return i % 3 == 1; }},
      {"one mesh left", [](std::size_t i) { return i != 5; }},
      {"all shown", [](std::size_t) { return false; }}};
  // What is hidden at first is made when it is shown.
  hide([](std::size_t i) { return i % 2 == 0; });
  SceneWindow followed(scene);
  for (const auto& [name, isHidden] : steps) {
    SCOPED_TRACE(name);
    hide(isHidden);
    followed.renderer.followVisibility();
    EXPECT_EQ(countDifferences(followed.draw(), SceneWindow(scene).draw()), 0);
  }
}

TEST_F(VisibilityTest, OfEdgesMovesFacesNoLongerWhenTheyAreHidden) {
  RenderScene steep;
  steep.canvas().getCameraAttributes().setPosition({0, -5, 0.44});
  steep.canvas().getCameraAttributes().setViewUp({0, 0, 1});
  steep.addSurface(makeRectangle(-0.8F, 0.8F, -0.8F, 0.8F), {1, 0, 0});
  std::vector<std::array<float, 3>> hidden;
  for (int i = -35; i <= 35; ++i) {
    hidden.push_back({0.02F * static_cast<float>(i), 0, -0.006F});
  }
  steep.add<lum::PointSphereDrawable>(makePolyData(hidden, {}), {0, 0, 1});
  auto& edges = steep.addSurface(makeRectangle(-0.1F, 0.1F, 0, 0.1F, 0.5F), {1, 0, 0});
  edges.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  edges.getAttributes<lum::LineAttributes>().setLineWidth(2);
  SceneWindow window(steep);
  const auto countBlue = [&window] {
    return boxWhere(window.draw(), [](const auto& pixel) { return pixel[2] > 0; }).count;
  };
  EXPECT_GT(countBlue(), 0) << "it could not be told";
  edges.getBaseAttributes().setVisibility(false, false);
  window.renderer.followVisibility();
  EXPECT_EQ(countBlue(), 0);
}

TEST_F(VisibilityTest, KeepsThePixelScaleOfWhatIsShownLater) {
  const auto drawWide = [this](bool isLater) {
    hide([=](std::size_t) { return isLater; });
    SceneWindow window(scene);
    window.renderer.scalePixels(3);
    hide([](std::size_t) { return false; });
    window.renderer.followVisibility();
    return window.draw();
  };
  EXPECT_EQ(countDifferences(drawWide(true), drawWide(false)), 0);
}

TEST_F(VisibilityTest, KeepsTheCameraThatAUserTurned) {
  SceneWindow window(scene);
  const Picture all = window.draw();
  hide([](std::size_t i) { return i > 3; });
  window.renderer.followVisibility();
  window.renderer.frameModel();
  EXPECT_NE(window.draw(), SceneWindow(scene).draw()) << "what is left fills the picture";
  window.turn(60);
  hide([](std::size_t) { return false; });
  window.renderer.followVisibility();
  EXPECT_NE(window.draw(), all);
  window.renderer.resetView();
  EXPECT_EQ(window.draw(), all);
}

TEST_F(VisibilityTest, CopiesTheViewOfASceneThatHasFewerCanvases) {
  auto& over = scene.node().getForegroundCanvas().getDrawableCollection();
  over.findOrCreate<lum::TextDrawable>().getAnnotationAttributes().setText("over the model");
  SceneWindow more(scene);
  RenderScene other;
  other.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 0, 0});
  SceneWindow fewer(other);
  more.turn(30);
  fewer.renderer.copyView(more.renderer);
  const Picture turned = fewer.draw();
  EXPECT_NE(turned, SceneWindow(other).draw());
  more.renderer.copyView(fewer.renderer);
  fewer.renderer.copyView(more.renderer);
  EXPECT_EQ(fewer.draw(), turned);
}

TEST_F(VisibilityTest, ResetsToTheViewOfASceneWithoutACamera) {
  scene.canvas().getCameraAttributes().setPosition({0, 0, 0});
  // Its size in the model is that which the view gives it.
  drawables[MESHES + 2]->getBaseAttributes().setVisibility(false, false);
  SceneWindow window(scene);
  const Picture opened = window.draw();
  window.turn(60);
  EXPECT_NE(window.draw(), opened);
  window.renderer.resetView();
  EXPECT_EQ(window.draw(), opened);
}

TEST_F(VisibilityTest, RefusesWhatIsTooLargeAndShowsTheRest) {
  hide([](std::size_t i) { return i == 0; });
  for (int i = 0; i < 6; ++i) {
    auto& many = scene.add<lum::SurfaceDrawable>(makeRectangle(0, 0.1F, 0, 0.1F));
    repeat(many, {1e-3, 0, 0}, 9000);
    many.getBaseAttributes().setVisibility(false, false);
    drawables.push_back(&many);
  }
  auto& behind = scene.node().getBackgroundCanvas().getDrawableCollection().findOrCreate<lum::TextDrawable>();
  behind.getAnnotationAttributes().setText("behind the model");
  behind.getTextAttributes().setForegroundColor(0xFFFFFFFF);
  behind.getBaseAttributes().setVisibility(false, false);
  drawables.insert(drawables.begin(), &behind);
  SceneWindow window(scene);
  hide([](std::size_t) { return false; });
  EXPECT_THROW(window.renderer.followVisibility(), SceneTooLarge);
  hide([this](std::size_t i) { return i + 6 >= drawables.size(); });
  window.renderer.followVisibility();
  EXPECT_EQ(countDifferences(window.draw(), SceneWindow(scene).draw()), 0);
}

TEST_F(VisibilityTest, HighlightIsInFrontAndCanBeHidden) {
  SceneWindow window(scene);
  const Picture plain = window.draw();
  window.renderer.outline(drawables[3]);
  window.renderer.mark(Vector3{0.001, 0.501, 0});
  const Picture marked = window.draw();
  const Picture::Pixel color{255, 115, 0};
  EXPECT_GT(countPixels(marked, color, 3), 60);
  EXPECT_EQ(marked.at(SIZE / 2, SIZE / 4), color);
  window.renderer.showHighlight(false);
  EXPECT_EQ(window.draw(), plain);
  window.renderer.showHighlight(true);
  window.renderer.outline(nullptr);
  window.renderer.mark(std::nullopt);
  EXPECT_EQ(window.draw(), plain);
}

}  // namespace

}  // namespace vemo
