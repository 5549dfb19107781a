// What the texts of ResolutionTest do not show.

#include "support/SceneBuilder.h"
#include <vemo/base/InternalError.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/resolve/SceneTooLarge.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <tuple>

namespace vemo {

namespace {

TEST(SceneResolverTest, SharesArraysWithTheNodesThatItNames) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  const auto& surface = scene.addSurface(geometry, {1, 0, 0});
  const auto mesh = resolveScene(scene.node()).canvases.at(0).meshes.at(0);
  EXPECT_EQ(mesh.drawable, &surface);
  EXPECT_EQ(mesh.node, surface.getNodes()[0].get());
  EXPECT_EQ(mesh.geometry->GetPoints()->GetData(), geometry->GetPoints()->GetData());
}

TEST(SceneResolverTest, CopiesOfPointsThatCannotBeDrawnOnlyThoseThatAreUsed) {
  SceneBuilder scene;
  const auto geometry = makePolyData(flat({NAN, 0, 0, 0, 1, 0, 1, 1, 2, 2}),
                                     {.lines = {{3, 2}}, .polys = {{0, 1, 2, 3}, {1, 2, 3}}});
  geometry->GetPointData()->AddArray(makeArray("pressure", {0, 1, 2, 3, 4}));
  geometry->GetCellData()->AddArray(makeArray("id", {7, 9, 8}));
  scene.addSurface(geometry, {1, 0, 0});
  scene.add<lum::PointSphereDrawable>(geometry, {1, 0, 0});
  SceneResolver resolver(scene.node(), {.arrays = MeshArrays::ALL});
  const auto meshes = resolver.resolve().canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 3U);
  const std::vector<std::vector<vtkIdType>> expected{{1, 2, 3}, {3, 2}, {1, 2, 3, 4}};
  for (std::size_t i = 0; i < meshes.size(); ++i) {
    const auto& [drawn, numbers] = std::tie(meshes[i].geometry, meshes[i].pointNumbers);
    EXPECT_EQ(std::vector<vtkIdType>(numbers->begin(), numbers->end()), expected[i]);
    ASSERT_EQ(drawn->GetNumberOfPoints(), numbers->GetNumberOfIds());
    for (vtkIdType point = 0; point < numbers->GetNumberOfIds(); ++point) {
      EXPECT_EQ(drawn->GetPointData()->GetArray("pressure")->GetComponent(point, 0), numbers->GetId(point));
      EXPECT_EQ(drawn->GetPoint(point)[1], geometry->GetPoint(numbers->GetId(point))[1]);
    }
  }
  EXPECT_EQ(meshes[0].geometry->GetCellData()->GetArray("id")->GetComponent(0, 0), 8);
}

TEST(SceneResolverTest, ResolvesOnlyWhatBecomesVisible) {
  SceneBuilder scene;
  auto& first = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  auto& second = scene.addSurface(makeRectangle(0, 1, 0, 1), {0, 1, 0});
  second.getBaseAttributes().setVisibility(false, false);
  SceneResolver resolver(scene.node());
  ASSERT_EQ(resolver.resolve().canvases.at(0).meshes.size(), 1U);
  first.getBaseAttributes().setVisibility(false, false);
  second.getBaseAttributes().setVisibility(true, false);
  const CanvasUpdate changed = resolver.update(0);
  EXPECT_FALSE(changed.visible.contains(&first));
  EXPECT_TRUE(changed.visible.contains(&second));
  ASSERT_EQ(changed.meshes.size(), 1U);
  EXPECT_EQ(changed.meshes[0].drawable, &second);
  first.getBaseAttributes().setVisibility(true, false);
  const CanvasUpdate again = resolver.update(0);
  EXPECT_TRUE(again.visible.contains(&first));
  EXPECT_TRUE(again.meshes.empty());
  EXPECT_THROW(resolver.update(1), InternalError);
}

TEST(SceneResolverTest, LimitsNestedRepeats) {
  SceneBuilder scene;
  lum::DrawableCollection* place = &scene.drawables();
  for (int i = 0; i < 5; ++i) {
    repeat(*place, {0.1, 0, 0}, i == 0 ? 1 : 100);
    place = &scene.collectionIn(*place);
  }
  const auto addSquare = [&] { scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0}, *place); };
  for (int i = 0; i < 5; ++i) {
    addSquare();
  }
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.back().transforms->size(), 10000U);
  addSquare();
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

TEST(SceneResolverTest, LimitsThePointsOfAllInstances) {
  SceneBuilder scene;
  const auto points = makePolyData(std::vector<std::array<float, 3>>(6000), {});
  for (int i = 0; i < 3; ++i) {
    repeat(scene.add<lum::PointSphereDrawable>(points), {1e-5, 0, 0}, 10000);
  }
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.size(), 3U);
  repeat(scene.add<lum::PointSphereDrawable>(points), {1e-5, 0, 0}, 10000);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

/// They are twice as many cells and corners as the polygon.
TEST(SceneResolverTest, LimitsTheTrianglesThatFillPolygonsOfAllInstances) {
  SceneBuilder scene;
  std::vector<float> comb{0, 0, 997, 0};
  for (int i = 997; i >= 0; --i) {
    comb.insert(comb.end(), {static_cast<float>(i), i % 2 == 0 ? 10.0F : 1.0F});
  }
  std::vector<vtkIdType> corners(1000);
  std::iota(corners.begin(), corners.end(), 0);
  const auto polygon = makePolyData(flat(comb), {.polys = {corners}});
  for (int i = 0; i < 3; ++i) {
    repeat(scene.add<lum::SurfaceDrawable>(polygon), {1e-5, 0, 0}, 10000);
  }
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.size(), 3U);
  repeat(scene.add<lum::SurfaceDrawable>(polygon), {1e-5, 0, 0}, 10000);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

TEST(SceneResolverTest, LimitsRepeatsOfDrawablesWithoutGeometry) {
  SceneBuilder scene;
  for (int i = 0; i < 101; ++i) {
    repeat(scene.collectionIn(scene.drawables()), {0.1, 0, 0}, 10000);
  }
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

TEST(SceneResolverTest, ResolvesHiddenItemsOnRequest) {
  SceneBuilder scene;
  auto& shown = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  auto& hidden = scene.addSurface(makeRectangle(0, 1, 0, 1), {0, 1, 0});
  auto& group = dynamic_cast<lum::Drawable&>(*hidden.getOwner());
  group.getBaseAttributes().setVisibility(false, false);
  SceneResolver resolver(scene.node());
  resolver.resolve();
  const CanvasUpdate rest = resolver.resolveHidden(0);
  ASSERT_EQ(rest.meshes.size(), 1U);
  EXPECT_EQ(rest.meshes[0].drawable, &hidden);
  EXPECT_TRUE(rest.visible.contains(&shown));
  EXPECT_FALSE(rest.visible.contains(&hidden));
  group.getBaseAttributes().setVisibility(true, false);
  EXPECT_TRUE(resolver.update(0).meshes.empty());
}

TEST(SceneResolverTest, KeepsAllArraysThatFitOnRequest) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  const auto pressure = makeArray("pressure", {1, 2, 3, 4});
  geometry->GetPointData()->AddArray(pressure);
  geometry->GetPointData()->AddArray(makeArray("short", {1, 2, 3}));
  geometry->GetCellData()->AddArray(makeArray("id", {7}));
  scene.addSurface(geometry, {1, 0, 0});
  const auto drawn = resolveScene(scene.node()).canvases.at(0).meshes.at(0).geometry;
  EXPECT_EQ(drawn->GetPointData()->GetNumberOfArrays(), 0);
  EXPECT_EQ(drawn->GetCellData()->GetNumberOfArrays(), 0);
  SceneResolver resolver(scene.node(), {.arrays = MeshArrays::ALL});
  const auto whole = resolver.resolve().canvases.at(0).meshes.at(0).geometry;
  EXPECT_EQ(whole->GetPointData()->GetArray("pressure"), pressure) << "is shared";
  EXPECT_FALSE(whole->GetPointData()->HasArray("short"));
  EXPECT_TRUE(whole->GetCellData()->HasArray("id"));
}

}  // namespace

}  // namespace vemo
