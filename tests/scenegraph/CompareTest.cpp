#include "scenegraph/inspect/Matching.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <vtkCellArray.h>
#include <vtkDoubleArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace vemo {

namespace {

using testing::ElementsAre;

lum::PolyDataNode& pieceOf(lum::SceneNode& scene, const char* name) {
  return *surfaceOf(scene).find<lum::PolyDataNode>(name);
}

lum::ColorLookupTable& tableOf(lum::SceneNode& scene) {
  return surfaceOf(scene).getAttributes<lum::ScalarAttributes>().getColorLookupTable();
}

void setHeat(lum::SceneNode& scene, const std::vector<float>& values) {
  pieceOf(scene, "first").setNodeDataArray(makeArray("heat", values));
}

/// Moves the point at the origin of the piece "first".
void movePoint(lum::SceneNode& scene, double z) {
  auto geometry = makeGeometry(false);
  geometry->GetPoints()->SetPoint(0, 0, 0, z);
  pieceOf(scene, "first").setPolyData(geometry);
  setHeat(scene, {1, NAN, INFINITY});
}

/// The scenes to compare: what is needed by several cases is there in all.
lum::Ptr<lum::SceneNode> makeComparedScene() {
  auto scene = makeScene();
  // There in both, so that the reference to it is the only difference.
  scene->getOrientationCanvas().getCameraAttributes();
  auto& colors = *surfaceOf(*scene).getColorAttributes();
  colors.setColor("left", {1, 0, 0});
  tableOf(*scene).setColorValues({0.25, 0.5, 1000});
  setHeat(*scene, {1, NAN, INFINITY});
  return scene;
}

/// Takes the pieces out and puts them in in another order.
void reorder(lum::SceneNode& scene, const std::vector<const char*>& names) {
  auto& surface = surfaceOf(scene);
  std::vector<lum::Ptr<lum::Node>> pieces;
  for (const char* name : names) {
    pieces.emplace_back(&pieceOf(scene, name));
  }
  for (const auto& piece : pieces) {
    surface.removeNode(*piece);
  }
  for (const auto& piece : pieces) {
    surface.addNode(*piece);
  }
}

std::vector<std::string> compare(const lum::Node& left, const lum::Node& right, double tolerance) {
  std::vector<std::string> lines;
  lum::compareGraphs(left, right, {.tolerance = tolerance}, [&](const lum::Difference& difference) {
    lines.push_back(lum::describeDifference(difference));
    return true;
  });
  return lines;
}

/// Of a scene and one that was changed. They differ in their bits in any case.
void expectDifferences(const char* name, double tolerance, const std::vector<std::string>& expected,
                       void (*change)(lum::SceneNode&)) {
  const auto left = makeComparedScene();
  const auto right = makeComparedScene();
  EXPECT_EQ(lum::firstDifference(*left, *right), "");
  EXPECT_THAT(compare(*left, *right, 0), testing::IsEmpty());
  change(*right);
  EXPECT_THAT(compare(*left, *right, tolerance), testing::ElementsAreArray(expected)) << name;
  EXPECT_NE(lum::firstDifference(*left, *right), "") << name;
}

TEST(Compare, FindsWhatDiffersByMeaning) {
  const std::string surface = "ModelCanvas/DrawableCollection/surface";
  const std::string first = surface + "/first: ";
  const std::string colors = surface + "/AttributesCollection/ColorAttributes";
  const std::string scalars = surface + "/AttributesCollection/ScalarAttributes/ColorLookupTable: ";
  expectDifferences("names of the root", 0,
                    {"/: name: scene against other", "/: qualifiedName: none against "}, [](auto& scene) {
                      scene.setName("other");
                      scene.setQualifiedName("");
                    });
  expectDifferences("a slot", 0, {"ForegroundCanvas: node: none against SceneCanvas"},
                    [](auto& scene) { scene.getForegroundCanvas(); });
  expectDifferences("zeros", 0, {}, [](auto& scene) {
    movePoint(scene, -0.0);
    surfaceOf(scene).getColorAttributes()->setColor("left", {1, -0.0, 0});
  });
  expectDifferences("an array on one side", 0,
                    {first + "nodeDataArrays[\"heat\"]: float32, 3 tuples against none"},
                    [](auto& scene) { pieceOf(scene, "first").setPolyData(makeGeometry(false)); });
  expectDifferences("a number within", 0.1, {}, [](auto& scene) {
    tableOf(scene).setColorValues({0.3, 0.5, 1090});
    surfaceOf(scene).getColorAttributes()->setOpacity(0.95, false);
  });
  expectDifferences("a number without", 0.05,
                    {colors + ": opacity: 1 against 0.875",
                     scalars + "colorValues: 0.25 against 0.35 (2 of 3 differ, most at 0, by 0.1)"},
                    [](auto& scene) {
                      tableOf(scene).setColorValues({0.35, 0.5, 1060});
                      surfaceOf(scene).getColorAttributes()->setOpacity(0.875, false);
                    });
  expectDifferences("digits", 0, {colors + ": opacity: 1 against 0.9999999999999999"}, [](auto& scene) {
    surfaceOf(scene).getColorAttributes()->setOpacity(1 - 0x1p-53, false);
  });
  expectDifferences("a list's length", 1, {scalars + "colorValues: 3 numbers against 1 numbers"},
                    [](auto& scene) { tableOf(scene).setColorValues({0.25}); });
  expectDifferences("a vector", 0, {colors + ": color: (0.25, 0.5, 0.75) against (1, 0, 0)"},
                    [](auto& scene) {
                      surfaceOf(scene).getColorAttributes()->setColor({1, 0, 0}, false);
                    });
  expectDifferences("a table", 0,
                    {colors + ": colors[\"left\"]: (1, 0, 0) against (1, 0, 1)",
                     colors + ": colors[\"right\"]: none against (0, 0, 0)"},
                    [](auto& scene) {
                      auto& attributes = *surfaceOf(scene).getColorAttributes();
                      attributes.setColor("left", {1, 0, 1});
                      attributes.setColor("right", {0, 0, 0});
                    });
  expectDifferences("values that are not finite", 10,
                    {first + "nodeDataArrays[\"heat\"]: nan against 1 (2 of 3 differ, most at 1, by inf)"},
                    [](auto& scene) {
                      setHeat(scene, {1, 1, -INFINITY});
                    });
  expectDifferences(
      "the greatest deviation", 0,
      {first + "nodeDataArrays[\"heat\"]: 1 against 1.5 (1 of 3 differ, most at 0, by 0.333333)"},
      [](auto& scene) {
        setHeat(scene, {1.5F, NAN, INFINITY});
      });
  expectDifferences(
      "a type", 0,
      {first + "nodeDataArrays[\"heat\"]: float32, 3 tuples against float64, 3 tuples",
       first + "nodeDataArrays[\"heat\"]: nan against 2 (1 of 3 differ, most at 1, by inf)"},
      [](auto& scene) {
        pieceOf(scene, "first").setNodeDataArray(makeArray<vtkDoubleArray>("heat", {1, 2, INFINITY}));
      });
  expectDifferences("a point", 0, {first + "points: 0 against 0.5 (1 of 9 differ, most at 0[2], by 0.5)"},
                    [](auto& scene) { movePoint(scene, 0.5); });
  expectDifferences("the width of cells", 0, {},
                    [](auto& scene) { pieceOf(scene, "wide").setPolyData(makeGeometry(false)); });
  expectDifferences("a cell", 0,
                    {surface + "/wide: polys: (0, 1, 2) against (0, 2, 1) (1 of 1 differ, first at 0)"},
                    [](auto& scene) {
                      auto geometry = makeGeometry(true);
                      geometry->GetPolys()->ReplaceCellAtId(0, 3, std::array<vtkIdType, 3>{0, 2, 1}.data());
                      pieceOf(scene, "wide").setPolyData(geometry);
                    });
  expectDifferences("a piece inserted", 0, {surface + "/new: node: none against PolyDataNode"},
                    [](auto& scene) {
                      surfaceOf(scene).template findOrCreate<lum::PolyDataNode>("new");
                      reorder(scene, {"new", "second", "wide", "none", "empty"});
                    });
  expectDifferences("a piece of the same name", 0, {surface + "/wide~#2: node: none against PolyDataNode"},
                    [](auto& scene) { surfaceOf(scene).addNode(*make<lum::PolyDataNode>("wide")); });
  expectDifferences(
      "another class", 0,
      {surface + ": node: SurfaceDrawable against none", surface + ": node: none against TextDrawable"},
      [](auto& scene) {
        scene.getModelCanvas().getDrawableCollection().removeAllNodes();
        scene.getModelCanvas().getDrawableCollection().addNode(*make<lum::TextDrawable>("surface"));
      });
  expectDifferences("the order of pieces", 0, {surface + "/first: position: 0 against 4"}, [](auto& scene) {
    reorder(scene, {"second", "wide", "none", "empty", "first"});
  });
  expectDifferences("the order of attributes", 0, {}, [](auto& scene) {
    auto& attributes = surfaceOf(scene).getAttributesCollection();
    const lum::Ptr<lum::Node> node(&attributes.getNode(0));
    attributes.removeNode(*node);
    attributes.addNode(*node);
  });
  expectDifferences("the order of arrays", 0, {}, [](auto& scene) {
    const auto arrays = pieceOf(scene, "first").getNodeDataArrays();
    auto geometry = makeGeometry(false);
    geometry->GetPointData()->Initialize();
    pieceOf(scene, "first").setPolyData(geometry);
    pieceOf(scene, "first").setNodeDataArray(arrays[1]);
    pieceOf(scene, "first").setNodeDataArray(arrays[0]);
  });
  expectDifferences("a reference", 1,
                    {"OrientationCanvas/DrawableCollection/triad: cameraAttributes: -> "
                     "ModelCanvas/AttributesCollection/CameraAttributes against -> "
                     "OrientationCanvas/AttributesCollection/CameraAttributes"},
                    [](auto& scene) {
                      triadOf(scene).setCameraAttributes(&scene.getOrientationCanvas().getCameraAttributes());
                    });
  expectDifferences("no reference", 1,
                    {"OrientationCanvas/DrawableCollection/triad: cameraAttributes: -> "
                     "ModelCanvas/AttributesCollection/CameraAttributes against none"},
                    [](auto& scene) { triadOf(scene).setCameraAttributes(nullptr); });
}

/// Their difference is no double.
TEST(Compare, HasAFiniteDeviationForFiniteNumbers) {
  const auto left = make<lum::PolyDataNode>();
  const auto right = make<lum::PolyDataNode>();
  left->setNodeDataArray(makeArray<vtkDoubleArray>("a", {1e308}));
  right->setNodeDataArray(makeArray<vtkDoubleArray>("a", {-1e308}));
  EXPECT_THAT(
      compare(*left, *right, 0),
      ElementsAre("/: nodeDataArrays[\"a\"]: 1e+308 against -1e+308 (1 of 1 differ, most at 0, by 2)"));
}

/// Larger integers than doubles can tell apart.
TEST(Compare, TellsLargeIntegersApart) {
  const auto left = make<lum::PolyDataNode>();
  const auto right = make<lum::PolyDataNode>();
  constexpr vtkTypeInt64 LARGE = std::numeric_limits<vtkTypeInt64>::max();
  left->setNodeDataArray(makeArray<vtkTypeInt64Array>("ids", {1, LARGE}));
  right->setNodeDataArray(makeArray<vtkTypeInt64Array>("ids", {1, LARGE - 1}));
  EXPECT_THAT(compare(*left, *right, 1),
              ElementsAre("/: nodeDataArrays[\"ids\"]: 9223372036854775807 against 9223372036854775806 "
                          "(1 of 2 differ, most at 1, by 1.0842e-19)"));
}

/// A comparison of each with each would take hours. Each second name changes places
/// with its neighbour, since those of one name are taken in order.
TEST(Matching, FindsItsWayAmongManySiblings) {
  constexpr std::size_t COUNT = 200'000;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < COUNT; ++i) {
    names.push_back(i % 2 == 0 ? "same" : std::to_string(i));
  }
  std::vector<lum::Matching::Key> left;
  for (const std::string& name : names) {
    left.emplace_back("class", name);
  }
  std::vector<lum::Matching::Key> right(left);
  std::rotate(right.begin(), right.begin() + 1, right.end());
  right.insert(right.begin() + 10, {"class", "new"});
  const lum::Matching matching(left, right);
  EXPECT_THAT(matching.getOnlyRight(), ElementsAre(10U));
  EXPECT_EQ(matching.getCounterparts()[1], 0U);
  EXPECT_EQ(matching.getCounterparts()[2], 3U);
  EXPECT_EQ(matching.findMoved().size(), COUNT / 2);
}

}  // namespace

}  // namespace vemo
