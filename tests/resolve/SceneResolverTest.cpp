// What the texts of ResolutionTest do not show.

#include "geometry/AskedArray.h"
#include "support/SceneBuilder.h"
#include "vemoview/resolve/mesh/DrawingLoad.h"
#include <vemo/base/InternalError.h>
#include <vemo/resolve/SceneResolver.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

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

/// In how many questions for names a surface with so many arrays becomes one that a VTK program can use,
/// without a point and a cell that cannot be drawn.
int questionsOfResolving(int count) {
  SceneBuilder scene;
  const auto geometry = makePolyData(flat({NAN, 0, 0, 0, 1, 0, 1, 1}), {.polys = {{0, 1, 2}, {1, 2, 3}}});
  auto& mesh = scene.addSurface(geometry, {1, 0, 0}).findOrCreate<lum::PolyDataNode>();
  for (const auto& array : makeAskedArrays(count, 4)) {
    mesh.setNodeDataArray(array);
  }
  for (const auto& array : makeAskedArrays(count, 2)) {
    mesh.setCellDataArray(array);
  }
  AskedArray::questions = 0;
  SceneResolver resolver(scene.node(), {.arrays = MeshArrays::ALL});
  const auto drawn = resolver.resolve().canvases.at(0).meshes.at(0).geometry;
  const int questions = AskedArray::questions;
  EXPECT_EQ(drawn->GetNumberOfPoints(), 3);
  EXPECT_EQ(drawn->GetPointData()->GetNumberOfArrays(), count);
  EXPECT_EQ(drawn->GetCellData()->GetNumberOfArrays(), count);
  return questions;
}

TEST(SceneResolverTest, AsksForNamesInProportionToTheArrays) {
  constexpr int COUNT = 50;
  EXPECT_LE(questionsOfResolving(2 * COUNT), 2 * questionsOfResolving(COUNT) + COUNT);
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

/// An arrow-shaped polygon, which is turned before it is drawn, and one that crosses itself.
vtkSmartPointer<vtkPolyData> makeAwkwardPolygons() {
  return makePolyData(flat({0, 0, 1, 1, 0, 0.2F, -1, 1, 2, 0, 3, 1, 3, 0, 2, 1}),
                      {.polys = {{1, 2, 3, 0}, {4, 5, 6, 7}}});
}

/// Each in an object of its own, as a database has them.
vtkSmartPointer<vtkPolyData> withCellsOfItsOwn(vtkPolyData& geometry) {
  auto result = vtkSmartPointer<vtkPolyData>::New();
  result->ShallowCopy(&geometry);
  vtkNew<vtkCellArray> polygons;
  polygons->ShallowCopy(geometry.GetPolys());
  result->SetPolys(polygons);
  return result;
}

TEST(SceneResolverTest, PreparesOnceWhatGeometriesShare) {
  SceneBuilder scene;
  const auto geometry = makeAwkwardPolygons();
  const auto other = makeAwkwardPolygons();
  scene.addSurface(geometry, {1, 0, 0});
  scene.addSurface(withCellsOfItsOwn(*geometry), {0, 1, 0});
  scene.addSurface(other, {0, 0, 1});
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 3U);
  ASSERT_NE(meshes[0].geometry->GetPolys()->GetConnectivityArray(),
            geometry->GetPolys()->GetConnectivityArray())
      << "the arrow is turned";
  EXPECT_EQ(meshes[1].geometry, meshes[0].geometry);
  EXPECT_EQ(meshes[1].filling, meshes[0].filling);
  EXPECT_NE(meshes[2].geometry, meshes[0].geometry);
  EXPECT_EQ(std::ranges::count(findings, FindingCode::POLYGONS_FOLDED, &Finding::code), 3)
      << "each is a finding of its own";
}

TEST(SceneResolverTest, SharesOnlyWhatHasTheSameArrays) {
  SceneBuilder scene;
  const auto geometry = makeAwkwardPolygons();
  const auto withData = withCellsOfItsOwn(*geometry);
  withData->GetCellData()->AddArray(makeArray("s", {0, 1}));
  scene.addSurface(geometry, {1, 0, 0});
  auto& colored = scene.addSurface(withData, {1, 0, 0});
  colorByArray(colored, "s", lum::DataLocation::CELLS, {1, 0, 0, 1, 0, 0, 1, 1});
  auto& wire = scene.addSurface(geometry, {1, 0, 0});
  wire.getAttributes<lum::SurfaceAttributes>().setShaded(false);
  wire.getAttributes<lum::MeshAttributes>().setMeshVisible(true, false);
  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 3U);
  EXPECT_NE(meshes[1].geometry, meshes[0].geometry);
  ASSERT_NE(meshes[1].filling->GetCellData()->GetArray("s"), nullptr);
  EXPECT_EQ(meshes[2].geometry->GetPolys(), geometry->GetPolys()) << "edges are those of the file";
}

/// Points that are sorted into two sizes.
void addScaled(SceneBuilder& scene, vtkPolyData* points, double end) {
  auto& scale = scene.add<lum::PointSphereDrawable>(points).getAttributes<lum::PointScaleAttributes>();
  scale.setScaleMode(lum::PointScaleMode::LINEAR);
  scale.setScalarName("s");
  scale.setScalarRange({0.0, end});
  scale.setMapToRange({2.0, 8.0});
}

TEST(SceneResolverTest, SortsPointsThatGeometriesShareOnce) {
  SceneBuilder scene;
  const auto points = makePolyData(flat({0, 0, 1, 0, 0, 1}), {});
  points->GetPointData()->AddArray(makeArray("s", {0, 1, 1}));
  addScaled(scene, points, 1);
  addScaled(scene, points, 1);
  addScaled(scene, points, 2);
  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 6U);
  EXPECT_EQ(meshes[2].geometry, meshes[0].geometry);
  EXPECT_EQ(meshes[3].geometry, meshes[1].geometry);
  EXPECT_NE(meshes[4].geometry, meshes[0].geometry);
}

TEST(SceneResolverTest, SharesWhatWasDrawnWithWhatIsShownLater) {
  SceneBuilder scene;
  const auto points = makePolyData(flat({0, 0, 1, 0, 0, 1}), {});
  scene.add<lum::PointSphereDrawable>(points);
  auto& later = scene.add<lum::PointSphereDrawable>(points);
  later.getBaseAttributes().setVisibility(false, false);
  SceneResolver resolver(scene.node());
  const auto meshes = resolver.resolve().canvases.at(0).meshes;
  later.getBaseAttributes().setVisibility(true, false);
  const auto added = resolver.update(0).meshes;
  ASSERT_EQ(added.size(), 1U);
  EXPECT_EQ(added[0].geometry, meshes.at(0).geometry);
  resolver.takeBack(0);
  const auto again = resolver.update(0).meshes;
  ASSERT_EQ(again.size(), 1U);
  EXPECT_EQ(again[0].geometry, meshes.at(0).geometry);
  EXPECT_TRUE(resolver.update(0).meshes.empty());
}

/// A text at a place in the model.
lum::TextDrawable& addTextAt(SceneBuilder& scene, const Vector3& position) {
  auto& text = scene.collectionIn(scene.drawables()).findOrCreate<lum::TextDrawable>();
  text.getAnnotationAttributes().setText("a");
  text.getAnnotationAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
  text.getPositionAttributes().setPosition(position, false);
  return text;
}

void show(lum::Drawable& drawable, bool isVisible) {
  drawable.getBaseAttributes().setVisibility(isVisible, false);
}

TEST(SceneResolverTest, TakesBackWhatCountsTowardsLimits) {
  SceneBuilder scene;
  // More than half of all decorations and copies, and copies of points that only what they are made of
  // permits.
  repeat(addTextAt(scene, {}), {0.1, 0, 0}, 1500);
  for (int i = 0; i < 3; ++i) {
    repeat(scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0}), {2, 0, 0}, 10'000);
  }
  constexpr std::size_t POINTS = 100'000;
  const auto points = makePolyData(std::vector<std::array<float, 3>>(POINTS), {});
  std::vector<float> values(POINTS);
  values[0] = 1;
  points->GetPointData()->AddArray(makeArray("s", values));
  for (int i = 0; i < 11; ++i) {
    addScaled(scene, points, i + 1);
  }
  show(scene.drawables(), false);
  SceneResolver resolver(scene.node());
  resolver.resolve();
  show(scene.drawables(), true);
  const std::size_t meshes = resolver.update(0).meshes.size();
  EXPECT_GT(meshes, 14U);
  for (int i = 0; i < 2; ++i) {
    resolver.takeBack(0);
    const CanvasUpdate again = resolver.update(0);
    EXPECT_EQ(again.meshes.size(), meshes);
    EXPECT_EQ(again.decorations.size(), 1500U);
  }
}

TEST(SceneResolverTest, TakesBackTheSizeOfTheModel) {
  SceneBuilder scene;
  scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  auto& large = scene.addSurface(makeRectangle(0, 100, 0, 1), {1, 0, 0});
  auto& text = addTextAt(scene, {50, 0, 0});
  show(large, false);
  show(text, false);
  SceneResolver resolver(scene.node());
  resolver.resolve();
  const auto isTextFramed = [&] {
    return std::get<TextDecoration>(resolver.update(0).decorations.at(0).content).isFramed;
  };
  show(large, true);
  show(text, true);
  EXPECT_TRUE(isTextFramed());
  resolver.takeBack(0);
  show(large, false);
  EXPECT_FALSE(isTextFramed());
}

/// A bolt, or an atom, of some points.
vtkSmartPointer<vtkPolyData> makePart(int points) {
  std::vector<std::array<float, 3>> places;
  std::vector<std::vector<vtkIdType>> triangles;
  for (int i = 0; i < points; ++i) {
    const auto x = static_cast<float>(i);
    places.push_back({std::cos(x), std::sin(x), 0.01F * x});
    triangles.push_back({i, (i + 1) % points, (i + 2) % points});
    triangles.push_back({i, (i + 2) % points, (i + 3) % points});
  }
  return makePolyData(places, {.polys = triangles});
}

TEST(SceneResolverTest, DrawsAPartAThousandTimes) {
  SceneBuilder scene;
  const auto bolt = makePart(2000);
  for (int i = 0; i < 1000; ++i) {
    auto& place = scene.collectionIn(scene.drawables());
    setTransform<lum::SimpleTransform>(place).setTranslation({3.0 * i, 0, 0});
    scene.addSurface(bolt, {1, 0, 0}, place);
  }
  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 1000U);
  EXPECT_TRUE(std::ranges::all_of(
      meshes, [&](const MeshInstance& mesh) { return mesh.geometry == meshes[0].geometry; }));
}

/// It is refused before anything is prepared: what is too large has no other finding.
TEST(SceneResolverTest, LimitsWhatIsDrawnInProportionToTheScene) {
  SceneBuilder scene;
  auto geometry = makePart(100'000);
  const auto elements = geometry->GetNumberOfPoints() + 4 * geometry->GetNumberOfCells();
  const auto most = (DrawingLimits::DRAWN + DrawingLimits::DRAWN_PER_ELEMENT * elements) / elements;
  for (vtkIdType i = 0; i <= most; ++i) {
    scene.addSurface(geometry, {1, 0, 0});
  }
  scene.addSurface(makeAwkwardPolygons(), {1, 0, 0});
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  try {
    resolveScene(scene.node());
    FAIL() << "it is drawn";
  } catch (const SceneTooLarge& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("most of them of \"collection 0\""));
  }
  EXPECT_TRUE(findings.empty());
}

TEST(SceneResolverTest, LimitsWhatIsCopiedInProportionToTheScene) {
  constexpr vtkIdType POINTS = 100'000;
  SceneBuilder scene;
  const auto points = makePolyData(std::vector<std::array<float, 3>>(POINTS), {});
  std::vector<float> values(POINTS);
  values[0] = 1;
  points->GetPointData()->AddArray(makeArray("s", values));
  const auto elements = 2 * POINTS;
  // Vertices for all points, for those of each size, and a copy of the one that is alone.
  const auto most = (DrawingLimits::MADE + DrawingLimits::MADE_PER_ELEMENT * elements) / elements - 2;
  for (vtkIdType i = 0; i < most; ++i) {
    addScaled(scene, points, static_cast<double>(i + 1));
  }
  EXPECT_NO_THROW(resolveScene(scene.node()));
  addScaled(scene, points, 0.5);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

/// Shared points need not be drawn by those that use few of them.
TEST(SceneResolverTest, KeepsFewOfManySharedPoints) {
  SceneBuilder scene;
  auto first = makePart(2000);
  auto second = vtkSmartPointer<vtkPolyData>::New();
  second->SetPoints(first->GetPoints());
  vtkNew<vtkCellArray> triangle;
  triangle->InsertNextCell({1998, 1999, 0});
  second->SetPolys(triangle);
  scene.addSurface(first, {1, 0, 0});
  scene.addSurface(second, {1, 0, 0});
  const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
  ASSERT_EQ(meshes.size(), 2U);
  EXPECT_EQ(meshes[0].geometry->GetPoints()->GetData(), first->GetPoints()->GetData());
  ASSERT_EQ(meshes[1].geometry->GetNumberOfPoints(), 3);
  EXPECT_EQ(meshes[1].pointNumbers->GetId(1), 1999);
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
  repeat(scene.add<lum::PointSphereDrawable>(points), {1e-5, 0, 0}, 10000);
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.size(), 1U);
  repeat(scene.add<lum::PointSphereDrawable>(points), {1e-5, 0, 0}, 10000);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

/// A thousand points, which make up a comb in their order.
vtkSmartPointer<vtkPolyData> makeCombs(const std::vector<std::vector<vtkIdType>>& polygons) {
  std::vector<float> comb{0, 0, 997, 0};
  for (int i = 997; i >= 0; --i) {
    comb.insert(comb.end(), {static_cast<float>(i), i % 2 == 0 ? 10.0F : 1.0F});
  }
  return makePolyData(flat(comb), {.polys = polygons});
}

/// They are twice as many cells and corners as the polygon.
TEST(SceneResolverTest, LimitsTheTrianglesThatFillPolygonsOfAllInstances) {
  SceneBuilder scene;
  scene.forgetView();
  std::vector<vtkIdType> corners(1000);
  std::iota(corners.begin(), corners.end(), 0);
  const auto polygon = makeCombs({corners});
  repeat(scene.add<lum::SurfaceDrawable>(polygon), {1e-5, 0, 0}, 10000);
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).meshes.size(), 1U);
  // Without the triangles, both would be drawn.
  repeat(scene.add<lum::SurfaceDrawable>(polygon), {1e-5, 0, 0}, 10000);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
}

/// Four of five geometries can be filled, with the wrong shape: of the last one, it is not even tried.
TEST(SceneResolverTest, LimitsTheTrianglesThatFillPolygonsBeforeTheyAreMade) {
  SceneBuilder scene;
  scene.forgetView();
  // Beside it, the others cover little.
  scene.addSurface(makeRectangle(0, 3000, 0, 3000), {1, 0, 0});
  std::vector<vtkIdType> crossing(1000);
  std::iota(crossing.begin(), crossing.end(), 0);
  std::swap(crossing[10], crossing[500]);
  const auto combs = makeCombs(std::vector(150, crossing));
  for (int i = 0; i < 5; ++i) {
    auto geometry = vtkSmartPointer<vtkPolyData>::New();
    geometry->ShallowCopy(combs);
    geometry->GetPointData()->SetNormals(makeArray("Normals", std::vector<float>(3000, 1), 3));
    scene.addSurface(geometry, {1, 0, 0});
  }
  std::vector<Finding> findings;
  const FindingCapture capture(findings);
  EXPECT_THROW(resolveScene(scene.node()), SceneTooLarge);
  EXPECT_EQ(findings.size(), 4U);
}

/// The unit square, named so many times.
vtkSmartPointer<vtkPolyData> makeStack(int count) {
  return makePolyData(flat({0, 0, 1, 0, 1, 1, 0, 1}), {.polys = std::vector<std::vector<vtkIdType>>(
                                                           static_cast<std::size_t>(count), {0, 1, 2, 3})});
}

/// Very many faces too small to be seen, and so many of a small square.
vtkSmartPointer<vtkPolyData> makeSpecks(int squares) {
  std::vector<std::vector<vtkIdType>> faces(600'000, {0, 1, 2});
  faces.insert(faces.end(), static_cast<std::size_t>(squares), {0, 3, 4, 5});
  return makePolyData(
      {{0, 0, 0}, {1e-6F, 0, 0}, {0, 1e-6F, 0}, {0.05F, 0, 0}, {0.05F, 0.05F, 0}, {0, 0.05F, 0}},
      {.polys = faces});
}

vtkSmartPointer<vtkPolyData> makeDiagonals(int count) {
  return makePolyData(flat({0, 0, 1, 1}), {.lines = std::vector<std::vector<vtkIdType>>(
                                               static_cast<std::size_t>(count), {0, 1})});
}

void addImages(SceneBuilder& scene, int count) {
  for (int i = 0; i < count; ++i) {
    scene.drawables()
        .findOrCreate<lum::ImageDrawable>(std::to_string(i))
        .getImageAttributes()
        .setPixels(makeArray<vtkUnsignedCharArray>("pixels", {255}), 1, 1);
  }
}

bool isDrawn(const SceneBuilder& scene) {
  try {
    resolveScene(scene.node());
    return true;
  } catch (const SceneTooLarge& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("would cover the picture more than "));
    return false;
  }
}

bool isDrawn(const std::function<void(SceneBuilder&)>& build) {
  SceneBuilder scene;
  scene.forgetView();
  build(scene);
  return isDrawn(scene);
}

TEST(SceneResolverTest, LimitsHowOftenThePictureIsCovered) {
  using Scene = SceneBuilder;
  const auto surface = [](int count) {
    return [=](Scene& scene) { scene.addSurface(makeStack(count), {1, 0, 0}); };
  };
  const auto translucent = [](int count) {
    return [=](Scene& scene) {
      scene.addSurface(makeStack(count), {1, 0, 0}).getColorAttributes()->setOpacity(0.5, false);
    };
  };
  const auto coloured = [](double alpha) {
    return [=](Scene& scene) {
      const auto stack = makeStack(100);
      stack->GetPointData()->AddArray(makeArray<vtkFloatArray>("values", {0, 0, 1, 1}));
      colorByArray(scene.addSurface(stack, {1, 0, 0}), "values", lum::DataLocation::POINTS,
                   {0, 0, 0, 1, 1, 1, 1, alpha});
    };
  };
  const auto specks = [](int layers) {
    return [=](Scene& scene) {
      scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
      scene.addSurface(makeSpecks(layers), {1, 0, 0}).getColorAttributes()->setOpacity(0.5, false);
    };
  };
  const auto repeats = [](double step) {
    return [=](Scene& scene) {
      repeat(scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0}), {step, 0, 0}, 3000);
    };
  };
  const auto lines = [](double width) {
    return [=](Scene& scene) {
      auto& drawable = scene.add<lum::PolyLineDrawable>(makeDiagonals(10'000));
      drawable.getAttributes<lum::LineAttributes>().setLineWidth(width);
    };
  };
  const auto points = [](double size) {
    return [=](Scene& scene) {
      const auto places = makePolyData(std::vector<std::array<float, 3>>(20'000), {});
      auto& drawable = scene.add<lum::PointSphereDrawable>(places);
      drawable.getAttributes<lum::PointSizeAttributes>().setPointSize(size);
    };
  };
  const auto images = [](int count) { return [=](Scene& scene) { addImages(scene, count); }; };
  EXPECT_TRUE(isDrawn(surface(400)));
  EXPECT_FALSE(isDrawn(surface(2000)));
  EXPECT_TRUE(isDrawn(translucent(20)));
  EXPECT_FALSE(isDrawn(translucent(60)));
  EXPECT_TRUE(isDrawn(coloured(1.0)));
  EXPECT_FALSE(isDrawn(coloured(0.5)));
  EXPECT_TRUE(isDrawn(specks(10)));
  EXPECT_FALSE(isDrawn(specks(100))) << "all are drawn again for each layer of a few";
  EXPECT_TRUE(isDrawn(repeats(1.0)));
  EXPECT_FALSE(isDrawn(repeats(1e-5)));
  EXPECT_TRUE(isDrawn(lines(3)));
  EXPECT_FALSE(isDrawn(lines(200)));
  EXPECT_TRUE(isDrawn(points(20)));
  EXPECT_FALSE(isDrawn(points(200)));
  EXPECT_TRUE(isDrawn(images(400)));
  EXPECT_FALSE(isDrawn(images(600)));
}

/// In the view of the scene and in one of all, and later as well as at first.
TEST(SceneResolverTest, LimitsHowOftenAnyPictureIsCovered) {
  SceneBuilder close;
  close.addSurface(makeStack(4000), {1, 0, 0});
  close.addSurface(makeRectangle(1000, 1001, 0, 1), {1, 0, 0});
  EXPECT_FALSE(isDrawn(close));
  close.forgetView();
  EXPECT_TRUE(isDrawn(close));
  SceneBuilder outside;
  setTransform<lum::SimpleTransform>(outside.addSurface(makeStack(4000), {1, 0, 0}))
      .setTranslation({9, 0, 0});
  EXPECT_FALSE(isDrawn(outside));
  SceneBuilder scene;
  scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  auto& hidden = scene.addSurface(makeStack(3000), {0, 1, 0});
  hidden.getBaseAttributes().setVisibility(false, false);
  SceneResolver resolver(scene.node());
  resolver.resolve();
  EXPECT_THROW(resolver.resolveHidden(0), SceneTooLarge);
  hidden.getBaseAttributes().setVisibility(true, false);
  EXPECT_THROW(resolver.update(0), SceneTooLarge);
  EXPECT_THROW(resolver.update(0), SceneTooLarge) << "it does not count as shown";
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
