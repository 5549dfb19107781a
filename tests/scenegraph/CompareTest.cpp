#include "scenegraph/inspect/Matching.h"
#include "support/Expected.h"
#include "support/GraphReader.h"
#include "support/Meshes.h"
#include "support/Nodes.h"
#include "support/SampleGraphs.h"
#include <vemo/scenegraph/inspect/Compare.h>

#include <vtkDoubleArray.h>
#include <vtkTypeUInt64Array.h>

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

std::vector<std::string> compare(const lum::Node& left, const lum::Node& right, double tolerance) {
  std::vector<std::string> lines;
  lum::compareGraphs(left, right, {.tolerance = tolerance}, [&](const lum::Difference& difference) {
    lines.push_back(lum::describeDifference(difference));
    return true;
  });
  return lines;
}

lum::Ptr<lum::SceneNode> sceneOf(const std::string& lines) {
  auto scene = make<lum::SceneNode>();
  addNodes(*scene, lines);
  return scene;
}

/// Of two scenes, which have "against" or "against, within TOLERANCE" between them.
TEST(CompareTest, FindsWhatDiffersByMeaning) {
  expectCases("differences.txt", [](const std::string& scenes) {
    const std::string against = "against";
    const std::string within = ", within ";
    const std::size_t middle = scenes.find(against);
    const std::size_t end = scenes.find('\n', middle);
    const std::string word = scenes.substr(middle + against.size(), end - middle - against.size());
    const auto left = sceneOf(scenes.substr(0, middle));
    const auto right = sceneOf(scenes.substr(end + 1));
    EXPECT_NE(lum::firstDifference(*left, *right), "") << "the bits differ in any case";
    EXPECT_THAT(compare(*left, *sceneOf(scenes.substr(0, middle)), 0), IsEmpty());
    std::string text;
    for (const std::string& line :
         compare(*left, *right, word.empty() ? 0 : std::stod(word.substr(within.size())))) {
      text += line + "\n";
    }
    return text;
  });
}

TEST(CompareTest, ComparesNamesOfRootsAndReferencesButNoWidthsOfCells) {
  const std::string reference =
      "OrientationCanvas/DrawableCollection/triad: cameraAttributes: -> "
      "ModelCanvas/AttributesCollection/CameraAttributes against ";
  const struct {
    void (*change)(lum::SceneNode& scene);
    std::vector<std::string> lines;
  } cases[] = {
      {[](lum::SceneNode& scene) { scene.setName("other"); }, {"/: name: scene against other"}},
      {[](lum::SceneNode& scene) { scene.setQualifiedName(""); }, {"/: qualifiedName: none against "}},
      {[](lum::SceneNode& scene) { triadOf(scene).setCameraAttributes(nullptr); }, {reference + "none"}},
      {[](lum::SceneNode& scene) {
         triadOf(scene).setCameraAttributes(&scene.getOrientationCanvas().getCameraAttributes());
       },
       {reference + "-> OrientationCanvas/AttributesCollection/CameraAttributes"}},
      {[](lum::SceneNode& scene) {
         surfaceOf(scene).find<lum::PolyDataNode>("wide")->setPolyData(makeGeometry(false));
       },
       {}}};
  for (const auto& [change, lines] : cases) {
    const auto left = makeScene();
    const auto right = makeScene();
    left->getOrientationCanvas().getCameraAttributes();
    right->getOrientationCanvas().getCameraAttributes();
    EXPECT_EQ(lum::firstDifference(*left, *right), "");
    change(*right);
    EXPECT_EQ(compare(*left, *right, 1), lines);
    EXPECT_NE(lum::firstDifference(*left, *right), "") << "the bits differ in any case";
  }
}

template <class Array, class Other = Array>
std::vector<std::string> compareArrays(const std::vector<typename Array::ValueType>& left,
                                       const std::vector<typename Other::ValueType>& right) {
  const auto a = make<lum::PolyDataNode>();
  const auto b = make<lum::PolyDataNode>();
  a->setNodeDataArray(makeArray<Array>("a", left));
  b->setNodeDataArray(makeArray<Other>("a", right));
  return compare(*a, *b, 0);
}

TEST(CompareTest, ComparesTypesAndValuesOfArrays) {
  EXPECT_THAT((compareArrays<vtkFloatArray, vtkDoubleArray>({1, NAN, INFINITY}, {1, 2, INFINITY})),
              ElementsAre("/: nodeDataArrays[\"a\"]: float32, 3 tuples against float64, 3 tuples",
                          "/: nodeDataArrays[\"a\"]: nan against 2 (1 of 3 differ, most at 1, by inf)"));
}

/// Doubles whose difference is not a double, and integers that are equal as
/// doubles.
TEST(CompareTest, IsExactAtTheEndsOfTheRange) {
  constexpr vtkTypeUInt64 LARGE = std::numeric_limits<vtkTypeUInt64>::max();
  EXPECT_THAT(
      compareArrays<vtkDoubleArray>({1e308}, {-1e308}),
      ElementsAre("/: nodeDataArrays[\"a\"]: 1e+308 against -1e+308 (1 of 1 differ, most at 0, by 2)"));
  EXPECT_THAT(compareArrays<vtkTypeUInt64Array>({1, LARGE}, {1, LARGE - 1}),
              ElementsAre("/: nodeDataArrays[\"a\"]: 18446744073709551615 against 18446744073709551614 "
                          "(1 of 2 differ, most at 1, by inf)"));
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
  const std::string same(99, 'x');
  EXPECT_THAT(text(same + '1', same + '2'), EndsWith("... (from byte 99 on)"));
}

}  // namespace

}  // namespace vemo
