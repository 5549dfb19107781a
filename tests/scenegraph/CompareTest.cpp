#include "scenegraph/inspect/Matching.h"
#include "support/Expected.h"
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
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <limits>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using Scene = lum::SceneNode;

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
  pieces.reserve(names.size());
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

TEST(CompareTest, FindsWhatDiffersByMeaning) {
  struct {
    const char* name;
    double tolerance;
    void (*change)(Scene& scene);
  } const cases[] = {
      {"names of the root", 0,
       [](Scene& scene) {
         scene.setName("other");
         scene.setQualifiedName("");
       }},
      {"a slot", 0, [](Scene& scene) { scene.getForegroundCanvas(); }},
      {"zeros", 0,
       [](Scene& scene) {
         movePoint(scene, -0.0);
         surfaceOf(scene).getColorAttributes()->setColor("left", {1, -0.0, 0});
       }},
      {"an array on one side", 0,
       [](Scene& scene) { pieceOf(scene, "first").setPolyData(makeGeometry(false)); }},
      {"a number within", 0.1,
       [](Scene& scene) {
         tableOf(scene).setColorValues({0.3, 0.5, 1090});
         surfaceOf(scene).getColorAttributes()->setOpacity(0.95, false);
       }},
      {"a number without", 0.05,
       [](Scene& scene) {
         tableOf(scene).setColorValues({0.35, 0.5, 1060});
         surfaceOf(scene).getColorAttributes()->setOpacity(0.875, false);
       }},
      {"digits", 0,
       [](Scene& scene) { surfaceOf(scene).getColorAttributes()->setOpacity(1 - 0x1p-53, false); }},
      {"a list's length", 1, [](Scene& scene) { tableOf(scene).setColorValues({0.25}); }},
      {"a vector", 0,
       [](Scene& scene) {
         surfaceOf(scene).getColorAttributes()->setColor({1, 0, 0}, false);
       }},
      {"a table", 0,
       [](Scene& scene) {
         auto& attributes = *surfaceOf(scene).getColorAttributes();
         attributes.setColor("left", {1, 0, 1});
         attributes.setColor("right", {0, 0, 0});
       }},
      {"values that are not finite", 10,
       [](Scene& scene) {
         setHeat(scene, {1, 1, -INFINITY});
       }},
      {"the greatest deviation", 0,
       [](Scene& scene) {
         setHeat(scene, {1.5F, NAN, INFINITY});
       }},
      {"a type", 0,
       [](Scene& scene) {
         pieceOf(scene, "first").setNodeDataArray(makeArray<vtkDoubleArray>("heat", {1, 2, INFINITY}));
       }},
      {"a point", 0, [](Scene& scene) { movePoint(scene, 0.5); }},
      {"the width of cells", 0,
       [](Scene& scene) { pieceOf(scene, "wide").setPolyData(makeGeometry(false)); }},
      {"a cell", 0,
       [](Scene& scene) {
         auto geometry = makeGeometry(true);
         geometry->GetPolys()->ReplaceCellAtId(0, 3, std::array<vtkIdType, 3>{0, 2, 1}.data());
         pieceOf(scene, "wide").setPolyData(geometry);
       }},
      {"a piece inserted", 0,
       [](Scene& scene) {
         surfaceOf(scene).findOrCreate<lum::PolyDataNode>("new");
         reorder(scene, {"new", "second", "wide", "none", "empty"});
       }},
      {"a piece of the same name", 0,
       [](Scene& scene) { surfaceOf(scene).addNode(*make<lum::PolyDataNode>("wide")); }},
      {"another class", 0,
       [](Scene& scene) {
         scene.getModelCanvas().getDrawableCollection().removeAllNodes();
         scene.getModelCanvas().getDrawableCollection().addNode(*make<lum::TextDrawable>("surface"));
       }},
      {"the order of pieces", 0,
       [](Scene& scene) {
         reorder(scene, {"second", "wide", "none", "empty", "first"});
       }},
      {"the order of attributes", 0,
       [](Scene& scene) {
         auto& attributes = surfaceOf(scene).getAttributesCollection();
         const lum::Ptr<lum::Node> node(&attributes.getNode(0));
         attributes.removeNode(*node);
         attributes.addNode(*node);
       }},
      {"the order of arrays", 0,
       [](Scene& scene) {
         const auto arrays = pieceOf(scene, "first").getNodeDataArrays();
         auto geometry = makeGeometry(false);
         geometry->GetPointData()->Initialize();
         pieceOf(scene, "first").setPolyData(geometry);
         pieceOf(scene, "first").setNodeDataArray(arrays[1]);
         pieceOf(scene, "first").setNodeDataArray(arrays[0]);
       }},
      {"a reference", 1,
       [](Scene& scene) {
         triadOf(scene).setCameraAttributes(&scene.getOrientationCanvas().getCameraAttributes());
       }},
      {"no reference", 1, [](Scene& scene) { triadOf(scene).setCameraAttributes(nullptr); }}};
  std::string found;
  for (const auto& [name, tolerance, change] : cases) {
    const auto left = makeComparedScene();
    const auto right = makeComparedScene();
    EXPECT_EQ(lum::firstDifference(*left, *right), "");
    EXPECT_THAT(compare(*left, *right, 0), testing::IsEmpty());
    change(*right);
    found += fmt::format("{}, tolerance {}\n", name, tolerance);
    for (const std::string& line : compare(*left, *right, tolerance)) {
      found += "  " + line + "\n";
    }
    EXPECT_NE(lum::firstDifference(*left, *right), "") << name << ": the bits differ in any case";
  }
  expectAsInFile(found, "differences.txt");
}

template <class Array>
std::vector<std::string> compareArrays(const std::vector<typename Array::ValueType>& left,
                                       const std::vector<typename Array::ValueType>& right) {
  const auto a = make<lum::PolyDataNode>();
  const auto b = make<lum::PolyDataNode>();
  a->setNodeDataArray(makeArray<Array>("a", left));
  b->setNodeDataArray(makeArray<Array>("a", right));
  return compare(*a, *b, 0);
}

/// Doubles whose difference is not a double, and integers that are equal as
/// doubles.
TEST(CompareTest, IsExactAtTheEndsOfTheRange) {
  constexpr vtkTypeInt64 LARGE = std::numeric_limits<vtkTypeInt64>::max();
  EXPECT_THAT(
      compareArrays<vtkDoubleArray>({1e308}, {-1e308}),
      ElementsAre("/: nodeDataArrays[\"a\"]: 1e+308 against -1e+308 (1 of 1 differ, most at 0, by 2)"));
  EXPECT_THAT(compareArrays<vtkTypeInt64Array>({1, LARGE}, {1, LARGE - 1}),
              ElementsAre("/: nodeDataArrays[\"a\"]: 9223372036854775807 against 9223372036854775806 "
                          "(1 of 2 differ, most at 1, by 1.0842e-19)"));
}

/// A comparison of each with each would take hours. Each second name changes places
/// with its neighbour, since those of one name are taken in order.
TEST(MatchingTest, FindsItsWayAmongManySiblings) {
  constexpr std::size_t COUNT = 200'000;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < COUNT; ++i) {
    names.push_back(i % 2 == 0 ? "same" : std::to_string(i));
  }
  std::vector<lum::Matching::Key> left;
  left.reserve(COUNT);
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

TEST(DifferencesTest, SayWhereTextsDifferThatLookAlike) {
  const auto text = [](const std::string& left, const std::string& right) {
    return lum::describeDifference({"n", "text", left, right, {}});
  };
  EXPECT_EQ(text("a b", "a c"), "n: text: a b against a c");
  EXPECT_EQ(text("a\nb", "a b"), "n: text: a\nb against a b (from byte 1 on)");
  EXPECT_THAT(text(std::string(99, 'x') + "1", std::string(99, 'x') + "2"),
              EndsWith("... (from byte 99 on)"));
}

}  // namespace

}  // namespace vemo
