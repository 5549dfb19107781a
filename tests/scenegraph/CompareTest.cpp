#include "support/SampleGraphs.h"
#include <vemo/scenegraph/inspect/Compare.h>

#include <vtkPoints.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

TEST(Compare, NamesTheNodeAndTheField) {
  struct {
    const char* expected;
    void (*change)(lum::SceneNode&);
  } const cases[] = {
      {"name: scene against other", [](auto& scene) { scene.setName("other"); }},
      {"qualified name", [](auto& scene) { scene.setQualifiedName(""); }},
      {"foregroundCanvas: only one has a node", [](auto& scene) { scene.getForegroundCanvas(); }},
      {"surface\": nodes: 5 against 6 nodes",
       [](auto& scene) { surfaceOf(scene).template findOrCreate<lum::PolyDataNode>("new"); }},
      {"ColorAttributes\": color",
       [](auto& scene) { surfaceOf(scene).getColorAttributes()->setColor({}, false); }},
      {"opacity: 1 against 0.5",
       [](auto& scene) { surfaceOf(scene).getColorAttributes()->setOpacity(0.5, false); }},
      {"first\": points: the values differ",
       [](auto& scene) {
         auto geometry = makeGeometry(false);
         geometry->GetPoints()->SetPoint(0, -0.0, 0, 0);
         surfaceOf(scene).template find<lum::PolyDataNode>("first")->setPolyData(geometry);
       }},
      {"wide\": verts: offsets: ",
       [](auto& scene) {
         surfaceOf(scene).template find<lum::PolyDataNode>("wide")->setPolyData(makeGeometry(false));
       }},
      {"triad\": refers to CameraAttributes",
       [](auto& scene) {
         triadOf(scene).setCameraAttributes(&scene.getOrientationCanvas().getCameraAttributes());
       }},
  };
  for (const auto& [expected, change] : cases) {
    const auto left = makeScene();
    const auto right = makeScene();
    // There in both, so that the reference to it is the only difference.
    left->getOrientationCanvas().getCameraAttributes();
    right->getOrientationCanvas().getCameraAttributes();
    EXPECT_EQ(lum::firstDifference(*left, *right), "");
    change(*right);
    EXPECT_THAT(lum::firstDifference(*left, *right), testing::HasSubstr(expected));
  }
}

}  // namespace

}  // namespace vemo
