// What is drawn of geometries that share their arrays, and how much of it.

#include "render/RenderScene.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include "vemoview/render/draw/BatchGroups.h"
#include "vemoview/render/draw/MeshProps.h"
#include "vemoview/render/draw/PropBudget.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/resources/LookupTables.h"
#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/render/RequireDrawable.h>
#include <vemo/render/SceneRenderer.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/resolve/SceneTooLarge.h>

#include <vtkActor.h>
#include <vtkCellData.h>
#include <vtkLookupTable.h>
#include <vtkMapper.h>
#include <vtkPointData.h>

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <tuple>
#include <vector>

namespace vemo {

namespace {

/// At a place of its own.
lum::SurfaceDrawable& addAt(SceneBuilder& scene, vtkPolyData* geometry, double x,
                            const Vector3& color = {1, 0, 0}) {
  auto& place = scene.collectionIn(scene.drawables());
  setTransform<lum::SimpleTransform>(place).setTranslation({x, 0, 0});
  return scene.addSurface(geometry, color, place);
}

/// Of each actor of a scene, if each mesh is drawn by itself.
std::vector<vtkSmartPointer<vtkMapper>> mappersOf(const SceneBuilder& scene) {
  const ResolvedCanvas canvas = resolveScene(scene.node()).canvases.at(0);
  CanvasResources resources = makeResources(canvas, *makeRenderer(canvas));
  std::vector<vtkSmartPointer<vtkMapper>> mappers;
  for (const MeshInstance& mesh : canvas.meshes) {
    PropGroup group(*resources.renderer);
    addProps({&mesh}, resources, group);
    group.forEachProp(
        [&](vtkProp& prop) { mappers.emplace_back(vtkActor::SafeDownCast(&prop)->GetMapper()); });
  }
  return mappers;
}

TEST(SharedDrawingTest, GeometriesOfOneMeshHaveOneMapper) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  addAt(scene, geometry, 0);
  addAt(scene, geometry, 2, {0, 1, 0});
  linesOf(addAt(scene, geometry, 4)).setLineWidth(3);
  addAt(scene, geometry, 6).getAttributes<lum::MaterialAttributes>().setSpecular(0.5);
  addAt(scene, makeRectangle(0, 1, 0, 1), 8);
  const auto mappers = mappersOf(scene);
  ASSERT_EQ(mappers.size(), 5U);
  EXPECT_EQ(mappers[1], mappers[0]) << "another colour";
  EXPECT_EQ(mappers[2], mappers[0]) << "another width of lines, of which there are none";
  EXPECT_NE(mappers[3], mappers[0]) << "another material";
  EXPECT_NE(mappers[4], mappers[0]) << "other arrays";
}

TEST(SharedDrawingTest, EdgesAndContoursOfOneMeshHaveOneMapperEach) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  for (const double x : {0.0, 2.0}) {
    auto& surface = addAt(scene, geometry, x);
    edgesOf(surface).setMeshVisible(true, false);
    surface.getAttributes<lum::ContourAttributes>().setContourVisible(true);
  }
  const auto mappers = mappersOf(scene);
  ASSERT_EQ(mappers.size(), 6U);
  EXPECT_EQ(std::set(mappers.begin(), mappers.end()).size(), 3U);
  EXPECT_TRUE(std::equal(mappers.begin(), mappers.begin() + 3, mappers.begin() + 3));
}

vtkSmartPointer<vtkPolyData> makeBar() {
  const auto bar = makeRectangle(-0.9F, -0.5F, -0.5F, 0.5F);
  bar->GetPointData()->AddArray(makeArray("s", {0, 1, 1, 2}));
  return bar;
}

/// Each where it is, in its own colour, and by its own table.
TEST(SharedDrawingTest, GeometriesOfOneMeshLookAsIfTheyHadTheirOwn) {
  const auto draw = [](bool isShared) {
    RenderScene scene;
    const auto shared = makeBar();
    const auto geometry = [&] { return isShared ? shared : makeBar(); };
    addAt(scene, geometry(), 0, {1, 0, 0});
    auto& wide = addAt(scene, geometry(), 0.45, {0, 0, 1});
    edgesOf(wide).setMeshVisible(true, false);
    linesOf(wide).setLineWidth(5);
    const std::vector<double> colors{1, 0, 0, 1, 0, 1, 0, 1};
    auto& table = colorByArray(addAt(scene, geometry(), 0.9), "s", lum::DataLocation::POINTS, colors);
    table.setScalarRange({0, 2});
    auto& other = colorByArray(addAt(scene, geometry(), 1.35), "s", lum::DataLocation::POINTS, colors);
    other.setColorValues(table.getColorValues());
    other.setScalarRange({5, 1});
    return scene.render();
  };
  EXPECT_EQ(countDifferences(draw(true), draw(false), 0), 0);
}

/// A long list of colours is converted once, however many tables have it.
TEST(SharedDrawingTest, TablesOfOneListOfColorsShareTheirForms) {
  const auto table = make<lum::ColorLookupTable>();
  table->setColorValues({1, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 1});
  table->setNumColor(3);
  UsableColorTables usable;
  LookupTables forms;
  const auto formOf = [&](const lum::Vector2& range) {
    table->setScalarRange(range);
    return vtkSmartPointer<vtkLookupTable>(
        forms.get(std::make_shared<const ColorTable>(usable.make(*table).table)));
  };
  const auto first = formOf({0, 3});
  const auto second = formOf({0, 30});
  const auto reversed = formOf({30, 0});
  EXPECT_EQ(second->GetTable(), first->GetTable());
  EXPECT_EQ(formOf({3, 0})->GetTable(), reversed->GetTable());
  table->setNumColor(2);
  EXPECT_NE(formOf({0, 3})->GetTable(), first->GetTable());
  // Also beyond the range, for which VTK's tables have colours of their own.
  for (const auto& [form, value, red] : {std::tuple(first, -1.0, 255),
                                         {first, 0.5, 255},
                                         {first, 1.5, 0},
                                         {second, 9.0, 255},
                                         {second, 99.0, 0},
                                         {reversed, 29.0, 255}}) {
    EXPECT_EQ(form->MapValue(value)[0], red) << value;
  }
}

std::vector<MeshInstance> meshesOf(const SceneBuilder& scene) {
  return resolveScene(scene.node()).canvases.at(0).meshes;
}

TEST(SharedDrawingTest, WhatIsNotSeenDividesNoBatch) {
  SceneBuilder scene;
  for (int i = 0; i < 20; ++i) {
    const auto x = static_cast<float>(i);
    auto& surface = scene.addSurface(makeRectangle(x, x + 0.5F, 0, 1), {1, 0, 0});
    linesOf(surface).setLineWidth(1 + i);
    edgesOf(surface).setMeshColor({0.01 * i, 0, 0});
  }
  EXPECT_EQ(groupIntoBatches(meshesOf(scene)).size(), 1U);
}

TEST(SharedDrawingTest, MergesNoLargeMeshThatIsShared) {
  SceneBuilder scene;
  std::vector<std::array<float, 3>> points(1000);
  for (std::size_t i = 0; i < points.size(); ++i) {
    points[i][0] = static_cast<float>(i);
  }
  const auto shared = makePolyData(points, {});
  for (int i = 0; i < 20; ++i) {
    scene.add<lum::PointSphereDrawable>(shared);
  }
  EXPECT_EQ(groupIntoBatches(meshesOf(scene)).size(), 20U);
}

TEST(SharedDrawingTest, LimitsThePropsInProportionToTheScene) {
  // In one place, with different looks: none can be drawn together with others.
  SceneBuilder scene;
  for (int i = 0; i < 500; ++i) {
    const auto triangle = makePolyData(flat({0, 0, 1, 0, 0, 1}), {.polys = {{0, 1, 2}}});
    auto& surface = scene.addSurface(triangle, {1, 0, 0});
    edgesOf(surface).setMeshVisible(true, false);
    linesOf(surface).setLineWidth(1 + 0.001 * i);
  }
  EXPECT_NO_THROW(requireDrawable(resolveScene(scene.node())));
  const PropBudget::Batches batches = groupIntoBatches(meshesOf(scene));
  PropBudget::Batches many;
  for (int i = 0; i < 100; ++i) {
    many.insert(many.end(), batches.begin(), batches.end());
  }
  try {
    PropBudget(Drawn::ONCE).add(many, 0);
    FAIL() << "they are drawn";
  } catch (const SceneTooLarge& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("parts that look different or cover each other, such as "
                                                 "\"collection 499\", would take"));
  }
  many.resize(3000);
  EXPECT_NO_THROW(PropBudget(Drawn::ONCE).add(many, 0));
  std::ranges::for_each(many, [](auto& batch) { batch.front().appearance.opacity = 0.5; });
  EXPECT_THROW(PropBudget(Drawn::ONCE).add(many, 0), SceneTooLarge);
}

/// Those of many different looks exist only while they are drawn, which nobody can see, also not where they
/// are mirrored, coloured by data, or cut, by OpenGL and beyond its planes.
TEST(SharedDrawingTest, LooksAlikeWhereverPropsAreKept) {
  RenderScene scene;
  for (int i = 0; i < 6; ++i) {
    scene.clip({1, 1, 0}, {-0.5 - 0.01 * i, 0, 0});
  }
  scene.clip({-1, 0.5, 0}, {0.6, 0, 0});
  auto& mirrored = scene.collectionIn(scene.drawables());
  setTransform<lum::SymmetricTransform>(mirrored).setPlane({0, 1, 0, 0});
  constexpr int MESHES = 400;
  for (int i = 0; i < MESHES; ++i) {
    const float left = -1.0F + 2.0F * static_cast<float>(i) / MESHES;
    const float depth = 0.001F * static_cast<float>((7 * i) % MESHES);
    const auto geometry = makeRectangle(left, left + 0.2F, 0.1F, 0.9F, depth);
    geometry->GetPointData()->AddArray(makeArray("s", {0, 0, 1, 1}));
    geometry->GetCellData()->AddArray(makeArray("s", {0.002F * static_cast<float>(i)}));
    auto& surface = scene.addSurface(geometry, {1, 0, 0.002 * i}, i % 3 == 0 ? mirrored : scene.drawables());
    if (i % 5 < 2) {
      colorByArray(surface, "s", i % 5 == 0 ? lum::DataLocation::POINTS : lum::DataLocation::CELLS,
                   {1, 0, 0, 1, 0, 1, 0, 1});
    }
    surface.getColorAttributes()->setOpacity(i % 2 == 0 ? 1.0 : 0.5, false);
    surface.getBaseAttributes().setClipPlanesEnabled(i % 7 != 0);
    edgesOf(surface).setMeshVisible(true, false);
    surface.getAttributes<lum::ContourAttributes>().setContourVisible(true);
    linesOf(surface).setLineWidth(1 + 0.001 * i);
  }
  const auto draw = [&](Drawn drawn) {
    SceneRenderer renderer(scene.node(), {}, drawn);
    const auto window = EglRenderWindow::open(SIZE, SIZE);
    renderer.addTo(*window, 0);
    renderer.scalePixels(2);
    window->Render();
    return Picture::of(*window);
  };
  EXPECT_THAT(PropBudget(Drawn::ONCE).add(groupIntoBatches(meshesOf(scene)), 7), testing::Contains(false));
  EXPECT_EQ(draw(Drawn::ONCE), draw(Drawn::OFTEN));
}

/// Nothing of it is shown, and it counts for nothing.
TEST(SharedDrawingTest, ShowsFewerItemsAfterTooManyWereRefused) {
  SceneBuilder scene;
  auto& one = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  // Each just too large to be merged, and few enough for the other limits.
  const auto points = makePolyData(std::vector<std::array<float, 3>>(33), {});
  auto& many = scene.add<lum::PointSphereDrawable>(points);
  for (int i = 0; i < 50'000; ++i) {
    const auto mesh = make<lum::PolyDataNode>();
    mesh->setPolyData(points);
    many.addNode(*mesh);
  }
  const auto show = [](lum::Drawable& drawable, bool isVisible) {
    drawable.getBaseAttributes().setVisibility(isVisible, false);
  };
  show(one, false);
  show(many, false);
  SceneRenderer renderer(scene.node(), {}, Drawn::ONCE);
  const auto isShown = [&](const lum::Drawable& drawable) { return renderer.fit(std::array{&drawable}); };
  show(one, true);
  show(many, true);
  EXPECT_THROW(renderer.followVisibility(), SceneTooLarge);
  EXPECT_FALSE(isShown(one));
  show(many, false);
  renderer.followVisibility();
  EXPECT_TRUE(isShown(one));
}

TEST(SharedDrawingTest, DrawsAPartThousandsOfTimes) {
  SceneBuilder scene;
  const auto part = makeRectangle(0, 1, 0, 1);
  for (int i = 0; i < 10'000; ++i) {
    addAt(scene, part, i);
  }
  EXPECT_NO_THROW(requireDrawable(resolveScene(scene.node())));
}

/// Beyond those of the hardware, each instance is cut by itself.
TEST(SharedDrawingTest, CountsInstancesThatAreCutByManyPlanes) {
  SceneBuilder scene;
  for (float y : {0.0F, 2.0F, 4.0F, 6.0F}) {
    repeat(scene.addSurface(makeRectangle(0, 1, y, y + 1), {1, 0, 0}), {2, 0, 0}, 2000);
  }
  const auto batches = groupIntoBatches(meshesOf(scene));
  EXPECT_THAT(PropBudget(Drawn::ONCE).add(batches, 6), testing::Each(true));
  EXPECT_THAT(PropBudget(Drawn::ONCE).add(batches, 7), testing::Each(false));
}

}  // namespace

}  // namespace vemo
