#include "support/SceneBuilder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <cmath>
#include <gmock/gmock.h>
#include <tuple>

namespace vemo {

namespace {

using Point = Vector3;
using testing::ElementsAre;

TEST(SceneResolverTest, ListsMeshesWithTheirAppearanceAndInstances) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  auto& surface = scene.addSurface(geometry, {0.5, 2, -1});
  surface.getColorAttributes()->setOpacity(0.25, false);
  surface.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  surface.getAttributes<lum::MeshAttributes>().setMeshColor({0, 0, 1});
  surface.getBaseAttributes().setClipPlanesEnabled(false);
  repeat(surface, {10, 0, 0}, 3);
  scene.addSurface(geometry, {1, 0, 0}).getBaseAttributes().setVisibility(false, false);
  auto& points = scene.add<lum::PointSphereDrawable>(geometry);
  points.getAttributes<lum::PointSizeAttributes>().setPointSize(7);

  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 2U);
  EXPECT_EQ(meshes[0].drawable, &surface);
  EXPECT_EQ(meshes[0].node, surface.getNodes()[0].get());
  EXPECT_EQ(meshes[0].geometry->GetPoints()->GetData(), geometry->GetPoints()->GetData()) << "is shared";
  EXPECT_EQ(meshes[0].color, (Point{0.5, 1, 0}));
  Appearance expected;
  expected.hasEdges = true;
  expected.edgeColor = {0, 0, 1};
  expected.opacity = 0.25;
  expected.isClipped = false;
  EXPECT_EQ(meshes[0].appearance, expected);
  ASSERT_EQ(meshes[0].transforms->size(), 3U);
  EXPECT_EQ(transformedPoint(&meshes[0].transforms->at(2), {1, 2, 3}), (Point{21, 2, 3}));
  EXPECT_EQ(meshes[1].appearance.kind, Appearance::Kind::POINTS);
  EXPECT_EQ(meshes[1].appearance.pointSize, 7);
  EXPECT_EQ(meshes[1].geometry->GetNumberOfVerts(), 4);
  EXPECT_EQ(meshes[1].transforms, nullptr);
}

TEST(SceneResolverTest, DrawsLinesAndVerticesOfASurfaceAsSuch) {
  SceneBuilder scene;
  const auto mixed = makePolyData(flat({0, 0, 1, 0, 1, 1}),
                                  {.verts = {{0}}, .lines = {{0, 1}, {1, 2}}, .polys = {{0, 1, 2}}});
  mixed->GetCellData()->AddArray(makeArray("s", {1, 2, 3, 4}));
  mixed->GetPointData()->AddArray(makeArray("Normals", {0, 0, 1, 0, 0, 1, 0, 0, 1}, 3));
  auto& surface = scene.addSurface(mixed, {1, 0, 0});
  surface.getColorAttributes()->setOpacity(0.5, false);
  const auto parts = [&scene] { return resolveScene(scene.node()).canvases.at(0).meshes; };
  EXPECT_EQ(parts().at(1).color, (Point{1, 0, 0})) << "without edges: the surface's";

  auto& edges = surface.getAttributes<lum::MeshAttributes>();
  edges.setMeshColor({0, 0, 1});
  edges.setMeshOpacity(0.25);
  colorByArray(surface, "s", lum::DataLocation::CELLS);
  surface.getColorAttributes()->setColorMode(lum::ColorMode::PLAIN);
  const auto meshes = parts();
  ASSERT_EQ(meshes.size(), 3U);
  EXPECT_EQ(meshes[0].geometry->GetNumberOfCells(), 1);
  EXPECT_NE(meshes[0].geometry->GetPointData()->GetNormals(), nullptr);
  EXPECT_EQ(meshes[1].appearance.kind, Appearance::Kind::LINES);
  EXPECT_EQ(meshes[1].geometry->GetNumberOfCells(), 2);
  EXPECT_EQ(meshes[1].geometry->GetPointData()->GetNormals(), nullptr);
  EXPECT_EQ(meshes[1].color, (Point{0, 0, 1}));
  EXPECT_EQ(meshes[1].appearance.opacity, 0.25);
  EXPECT_TRUE(meshes[1].appearance.isOfSurface);
  EXPECT_EQ(meshes[2].appearance.kind, Appearance::Kind::POINTS);
  EXPECT_EQ(meshes[2].appearance.opacity, 1.0);
  EXPECT_NE(meshes[2].color, meshes[0].color);

  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  EXPECT_EQ(parts().at(1).geometry->GetCellData()->GetArray("s")->GetComponent(1, 0), 3);
  surface.getColorAttributes()->setOpacity(0, false);
  edges.setMeshOpacity(0);
  EXPECT_EQ(parts().size(), 1U) << "the vertex";
}

TEST(SceneResolverTest, TakesTheColorOfTheModeOrTheOther) {
  SceneBuilder scene;
  auto& colors = *scene.addSurface(makeRectangle(0, 1, 0, 1), {0, 0, 1}).getColorAttributes();
  const auto color = [&] { return resolveScene(scene.node()).canvases.at(0).meshes.at(0).color; };
  colors.setColorMode(lum::ColorMode::KEYED);
  EXPECT_EQ(color(), (Point{0, 0, 1}));
  colors.setColor("PolyDataNode", {1, 0, 0});
  EXPECT_EQ(color(), (Point{1, 0, 0}));
  colors.setColorMode(lum::ColorMode::PLAIN);
  EXPECT_EQ(color(), (Point{0, 0, 1}));
}

TEST(SceneResolverTest, GivesPointsADefaultColorThatContrastsWithEveryBackground) {
  SceneBuilder scene;
  scene.add<lum::PointSphereDrawable>(makeRectangle(0, 1, 0, 1));
  const Point color = resolveScene(scene.node()).canvases.at(0).meshes.at(0).color;
  const auto linear = [](double value) { return std::pow(value, 2.2); };
  const double luminance = 0.2126 * linear(color[0]) + 0.7152 * linear(color[1]) + 0.0722 * linear(color[2]);
  EXPECT_GT((luminance + 0.05) / 0.05, 4) << "on black";
  EXPECT_GT(1.05 / (luminance + 0.05), 4) << "on white";
}

TEST(SceneResolverTest, LeavesOutWhatIsHiddenAndAllBelow) {
  SceneBuilder scene;
  auto& outer = scene.collectionIn(scene.drawables());
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0}, outer);
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {0, 1, 0}, outer);
  for (const auto& [isOuterVisible, isSurfaceVisible, shown] :
       {std::tuple(true, true, 2U), {true, false, 1}, {false, true, 0}, {false, false, 0}}) {
    outer.getBaseAttributes().setVisibility(isOuterVisible, false);
    surface.getBaseAttributes().setVisibility(isSurfaceVisible, false);
    EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.size(), shown);
  }
}

TEST(SceneResolverTest, GivesViewAndLightOfCanvasesFromBackToFront) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 1, 1});
  auto& light = scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("light");
  light.setColor({1, 0, 0});
  light.setIntensity(2);
  light.setAngles(30, 60);
  scene.clip({0, 0, 0}, {4, 5, 6});
  scene.clip({0, 0, -1e200}, {1, 2, 3});
  auto& foreground = scene.node().getForegroundCanvas();
  foreground.getDrawableCollection();
  foreground.getBaseCanvasAttributes().setSize({0.5, 3});
  foreground.getAttributes<lum::CanvasPositionAttributes>().setPosition({0.25, -1});
  scene.node().getOrientationCanvas().getDrawableCollection();
  scene.node().getOrientationCanvas().getBaseCanvasAttributes().setSize({0, 1});

  const ResolvedScene resolved = resolveScene(scene.node());
  ASSERT_EQ(resolved.canvases.size(), 2U) << "an empty part of the window shows nothing";
  const ResolvedCanvas& model = resolved.canvases[0];
  EXPECT_EQ(model.role, ResolvedCanvas::Role::MODEL);
  ASSERT_EQ(model.lights.size(), 1U);
  EXPECT_EQ(model.lights[0].azimuth, 30);
  EXPECT_EQ(model.lights[0].elevation, 60);
  ASSERT_EQ(model.clipPlanes.size(), 1U);
  EXPECT_EQ(model.clipPlanes[0].normal, (Point{0, 0, -1}));
  EXPECT_EQ(model.clipPlanes[0].origin, (Point{1, 2, 3}));
  EXPECT_EQ(resolved.canvases[1].role, ResolvedCanvas::Role::FOREGROUND);
  EXPECT_EQ(resolved.canvases[1].lowerLeft, (Vector<2, double>{0.25, 0}));
  EXPECT_EQ(resolved.canvases[1].upperRight, (Vector<2, double>{0.75, 1}));
  EXPECT_FALSE(resolved.canvases[1].camera.viewpoint);
  EXPECT_TRUE(resolved.canvases[1].lights.empty());
}

TEST(SceneResolverTest, GivesDecorationsAsPlainData) {
  SceneBuilder scene;
  scene.drawables();
  auto& legend =
      scene.node().getForegroundCanvas().getDrawableCollection().findOrCreate<lum::LegendDrawable>("legend");
  legend.getColorLookupTable().setScalarRange({2, 3});
  legend.getLegendAttributes().setLabelFormat("%d");
  auto& triad =
      scene.node().getOrientationCanvas().getDrawableCollection().findOrCreate<lum::TriadDrawable>("triad");
  triad.setCameraAttributes(&scene.node().getForegroundCanvas().getCameraAttributes());
  triad.getTriadAttributes().setXAxisLabelText("East");
  triad.getOrientationAttributes().setForwardVector({2, 0, 0});
  triad.getOrientationAttributes().setUpVector({1, 0, 3});

  const ResolvedScene resolved = resolveScene(scene.node());
  ASSERT_EQ(resolved.canvases.size(), 3U);
  const auto& bar = std::get<LegendDecoration>(resolved.canvases[1].decorations.at(0).content);
  EXPECT_EQ(bar.labelFormat, "%.4g") << "the default replaces one that is not for a double";
  EXPECT_EQ(bar.table.range, (Vector<2, double>{2, 3}));
  EXPECT_EQ(bar.table.rgba.size(), 4U * 256U);
  const auto& axes = std::get<TriadDecoration>(resolved.canvases[2].decorations.at(0).content);
  EXPECT_THAT(axes.axes, ElementsAre(Point{0, 1, 0}, Point{0, 0, 1}, Point{1, 0, 0}));
  EXPECT_EQ(axes.labels.value()[0], "East");
  ASSERT_TRUE(axes.camera);
  EXPECT_EQ(resolved.canvases.at(std::get<std::size_t>(*axes.camera)).role, ResolvedCanvas::Role::FOREGROUND);
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
}

}  // namespace

}  // namespace vemo
