#include "render/Pixels.h"
#include "render/RenderScene.h"

#include <gtest/gtest.h>

namespace vemo {

namespace {

/// From five degrees above.
void lookAlongTheGround(const RenderScene& scene, const Vector3& up = {0, 0, 1}) {
  scene.canvas().getCameraAttributes().setPosition({0, -5, 0.44});
  scene.canvas().getCameraAttributes().setViewUp(up);
}

TEST(LinesOnFacesTest, HidesWhatIsBehindFacesWithWideEdges) {
  RenderScene scene;
  lookAlongTheGround(scene);
  auto& upper = scene.addSurface(makeRectangle(-0.8F, 0.8F, -0.8F, 0.8F, 0.05F), {1, 0, 0});
  upper.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  upper.getAttributes<lum::LineAttributes>().setLineWidth(5);
  scene.addSurface(makeRectangle(-0.8F, 0.8F, -0.8F, 0.8F), {0, 1, 0});
  auto& line = scene.add<lum::PolyLineDrawable>(
      makePolyData({{-0.7F, 0, 0.033F}, {0.7F, 0, 0.033F}}, {.lines = {{0, 1}}}), {0, 0, 1});
  line.getAttributes<lum::LineAttributes>().setLineWidth(2);
  const Picture picture = scene.render();
  EXPECT_GT(boxWhere(picture, [](const auto& pixel) { return pixel[0] > pixel[1] + 20; }).count, 2000);
  EXPECT_EQ(boxWhere(picture, [](const auto& pixel) { return pixel[2] > 0; }).count, 0);
}

TEST(LinesOnFacesTest, DrawsEdgesOnSteepFacesAsWideAsWithoutFaces) {
  const auto countEdges = [](int width, bool hasFaces) {
    RenderScene scene;
    lookAlongTheGround(scene, {1, 0, 1});
    auto& plate = scene.addSurface(
        makePolyData(flat({-0.8F, -0.8F, 0, -0.8F, 0.8F, -0.8F, 0.8F, 0.8F, 0.1F, 0.8F, -0.8F, 0.8F}),
                     {.polys = {{0, 1, 4, 5}, {1, 2, 3, 4}}}),
        {1, 0, 0});
    plate.getAttributes<lum::SurfaceAttributes>().setShaded(hasFaces);
    plate.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    plate.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
    plate.getAttributes<lum::LineAttributes>().setLineWidth(width);
    return boxWhere(scene.render(), [](const auto& pixel) { return pixel[1] > 127; }).count;
  };
  for (const int width : {1, 2}) {
    const int edges = countEdges(width, false);
    EXPECT_GT(edges, 300 * width);
    EXPECT_NEAR(countEdges(width, true), edges, 0.02 * edges) << width;
  }
}

TEST(LinesOnFacesTest, HidesEdgesBehindFacesWhateverIsNear) {
  using Mode = lum::CameraAttributes::ProjectionMode;
  const auto countEdges = [](Mode mode, bool isSomethingNear) {
    const float distance = mode == Mode::PERSPECTIVE ? 5 : 5000;
    RenderScene scene;
    lum::CameraAttributes& camera = scene.canvas().getCameraAttributes();
    camera.setProjectionMode(mode);
    camera.setPosition({0, 0, distance});
    scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 0, 0});
    auto& behind = scene.addSurface(makeRectangle(-0.4F, 0.4F, -0.4F, 0.4F, -0.03F), {0, 0, 1});
    behind.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    behind.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
    auto& before = scene.addSurface(makeRectangle(-0.3F, 0.3F, -0.3F, 0.3F), {1, 0, 0});
    before.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    before.getAttributes<lum::MeshAttributes>().setMeshColor({1, 1, 1});
    if (isSomethingNear) {
      scene.addSurface(makeRectangle(0.002F, 0.003F, 0.002F, 0.003F, 0.998F * distance), {0, 0, 1});
    }
    const Picture picture = scene.render();
    EXPECT_EQ(boxWhere(picture, [](const auto& pixel) { return pixel[1] > pixel[2] + 50; }).count, 0);
    return boxWhere(picture, [](const auto& pixel) { return pixel[1] > 50; }).count;
  };
  for (const Mode mode : {Mode::PERSPECTIVE, Mode::PARALLEL}) {
    const int edges = countEdges(mode, false);
    EXPECT_GT(edges, 200);
    EXPECT_NEAR(countEdges(mode, true), edges, 20);
  }
}

TEST(LinesOnFacesTest, ShowsLinesOnTheirFacesWhateverIsFar) {
  const auto countLine = [](float far) {
    RenderScene scene;
    lum::CameraAttributes& camera = scene.canvas().getCameraAttributes();
    camera.setPosition({0.05, 0.03, 0.1});
    camera.setParallelScale(0.1);
    auto& plate = scene.addSurface(
        makePolyData(flat({-0.1F, -0.1F, 0.1F, -0.1F, 0.1F, 0.1F, -0.1F, 0.1F, -0.09F, -0.04F, 0.09F, 0.04F}),
                     {.lines = {{4, 5}}, .polys = {{0, 1, 2, 3}}}),
        {1, 0, 0});
    plate.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
    scene.addSurface(makeRectangle(-far, far, -far, far, -far), {0, 0, 1});
    return boxWhere(scene.render(), [](const auto& pixel) { return pixel[1] > 50; }).count;
  };
  const int usual = countLine(1);
  EXPECT_GT(usual, 150);
  for (const float far : {10.0F, 100.0F, 1000.0F}) {
    EXPECT_NEAR(countLine(far), usual, 2) << far;
  }
}

/// In a parallel view of a model that reaches far behind what is seen.
TEST(LinesOnFacesTest, HidesEdgesBehindFacesWhateverIsFar) {
  RenderScene scene;
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F), {1, 0, 0});
  auto& behind = scene.addSurface(makeRectangle(-0.4F, 0.4F, -0.4F, 0.4F, -0.03F), {0, 0, 1});
  behind.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  behind.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
  scene.addSurface(makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F, -5000), {0, 0, 1});
  EXPECT_EQ(boxWhere(scene.render(), [](const auto& pixel) { return pixel[1] > 0; }).count, 0);
}

/// Whatever the order in which they are drawn: rounding would let the face show through.
TEST(LinesOnFacesTest, DrawsLinesInFrontOfFacesInTheirPlane) {
  const auto countBlue = [](bool hasFace) {
    RenderScene scene;
    lookAlongTheGround(scene);
    scene.canvas().getCameraAttributes().setProjectionMode(
        lum::CameraAttributes::ProjectionMode::PERSPECTIVE);
    auto& line = scene.add<lum::PolyLineDrawable>(
        makePolyData({{-0.7F, -0.31F, 0}, {0.63F, 0.37F, 0}}, {.lines = {{0, 1}}}), {0, 0, 1});
    line.getAttributes<lum::LineAttributes>().setLineWidth(2);
    if (hasFace) {
      scene.addSurface(makeRectangle(-0.9F, 0.8F, -0.8F, 0.9F), {1, 0, 0});
    }
    return countPixels(scene.render(), {0, 0, 255});
  };
  const int line = countBlue(false);
  EXPECT_GT(line, 100);
  EXPECT_NEAR(countBlue(true), line, 0.02 * line);
}

/// A line of many pieces along the edge of a surface: rounding would mix their colours.
TEST(LinesOnFacesTest, DrawsEdgesInFrontOfLinesInTheirPlace) {
  const auto countEdges = [](bool hasLine) {
    RenderScene scene;
    lookAlongTheGround(scene);
    auto& plate = scene.addSurface(makeRectangle(-0.7F, 0.63F, -0.31F, 0.57F), {1, 0, 0});
    plate.getAttributes<lum::SurfaceAttributes>().setShaded(false);
    plate.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
    plate.getAttributes<lum::MeshAttributes>().setMeshColor({0, 1, 0});
    if (hasLine) {
      scene.add<lum::PolyLineDrawable>(
          makePolyData({{-0.7F, -0.31F, 0}, {-0.3F, -0.31F, 0}, {0.1F, -0.31F, 0}, {0.63F, -0.31F, 0}},
                       {.lines = {{0, 1, 2, 3}}}),
          {0, 0, 1});
    }
    return boxWhere(scene.render(), [](const auto& pixel) { return pixel[1] > 127; }).count;
  };
  const int edges = countEdges(false);
  EXPECT_GT(edges, 300);
  EXPECT_EQ(countEdges(true), edges);
}

}  // namespace

}  // namespace vemo
