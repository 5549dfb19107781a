#include "support/SceneBuilder.h"
#include <vemo/scenegraph/coloring/ColorTable.h>
#include <vemo/scenegraph/edit/DataColoring.h>
#include <vemo/scenegraph/edit/EditError.h>
#include <vemo/scenegraph/edit/Items.h>
#include <vemo/scenegraph/edit/View.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <gmock/gmock.h>
#include <limits>
#include <string>

namespace vemo {

namespace {

using testing::ElementsAre;
using Range = Vector<2, double>;

template <class Edit>
std::string errorOf(Edit&& edit) {
  try {
    edit();
  } catch (const lum::EditError& error) {
    return error.what();
  }
  return "none";
}

/// Assemblies "body" with "wing" and "rudder", and "wing/wing".
struct Items : SceneBuilder {
  lum::DrawableCollection& body = drawables().findOrCreate<lum::DrawableCollection>("body");
  lum::DrawableCollection& wing = body.findOrCreate<lum::DrawableCollection>("wing");
  lum::DrawableCollection& inner = wing.findOrCreate<lum::DrawableCollection>("wing");
  lum::DrawableCollection& rudder = body.findOrCreate<lum::DrawableCollection>("rudder");
  lum::DrawableCollection& slash = drawables().findOrCreate<lum::DrawableCollection>("tail/fin");
};

TEST(SceneEditTest, FindsItemsByNameOrPath) {
  Items items;
  const std::pair<const char*, std::vector<lum::Drawable*>> cases[] = {
      {"rudder", {&items.rudder}},
      {"wing", {&items.wing, &items.inner}},
      {"wing/wing", {&items.inner}},
      {"body/wing", {&items.wing}},
      {"ModelCanvas/DrawableCollection/body", {&items.body}},
      {"tail/fin", {&items.slash}},
      {"tail~1fin", {&items.slash}}};
  for (const auto& [item, found] : cases) {
    EXPECT_EQ(lum::findItems(items.node(), item), found) << item;
  }
  // Too long to be suggested.
  items.body.findOrCreate<lum::DrawableCollection>(std::string(300, '-') + "wing");
  const std::pair<const char*, const char*> errors[] = {
      {"Wign", R"(The scene has no item "Wign": did you mean "wing"?)"},
      {"rudders", R"(The scene has no item "rudders": did you mean "rudder"?)"},
      {"ing", R"(The scene has no item "ing": did you mean "wing"?)"},
      {"body/wnig", "The scene has no item \"body/wnig\""},
      {"", "The scene has no item \"\""}};
  for (const auto& [item, message] : errors) {
    const std::string wanted = item;
    EXPECT_EQ(errorOf([&] { lum::findItems(items.node(), wanted); }), message);
  }
}

TEST(SceneEditTest, RevealsWithoutWhatElseIsHidden) {
  Items items;
  for (lum::Drawable* const drawable : {&items.drawables(), &items.inner}) {
    lum::setShown(*drawable, false);
  }
  lum::revealAll(items.wing);
  EXPECT_TRUE(lum::isShown(items.drawables()) && lum::isShown(items.body));
  EXPECT_TRUE(lum::isShown(items.inner));
  EXPECT_FALSE(lum::isShown(items.rudder)) << "was in a shown one within the hidden one";
  EXPECT_FALSE(lum::isShown(items.slash));
}

/// A legend of a table.
lum::LegendDrawable& addLegend(const SceneBuilder& scene, const std::string& title,
                               const lum::ColorLookupTable& table) {
  auto& legend =
      scene.node().getForegroundCanvas().getDrawableCollection().findOrCreate<lum::LegendDrawable>(title);
  legend.getLegendAttributes().setTitle(title);
  legend.getColorLookupTable().setColorValues(table.getColorValues());
  legend.getColorLookupTable().setNumColor(table.getNumColor());
  legend.getColorLookupTable().setScalarRange(table.getScalarRange());
  return legend;
}

/// Three rectangles: with "heat" over points and cells, with "heat" over cells and "wind",
/// with "wind" of three components alone. The first two are coloured.
struct Colored : SceneBuilder {
  lum::GeometryDrawable& addGeometry(const std::vector<vtkDataArray*>& points, vtkDataArray* cells) {
    const auto rectangle = makeRectangle(0, 1, 0, 1);
    for (vtkDataArray* const array : points) {
      rectangle->GetPointData()->AddArray(array);
    }
    rectangle->GetCellData()->AddArray(cells);
    return add<lum::SurfaceDrawable>(rectangle);
  }
  Range rangeOf(lum::GeometryDrawable& drawable) const {
    return drawable.getAttributes<lum::ScalarAttributes>().getColorLookupTable().getScalarRange();
  }

  lum::GeometryDrawable& first = addGeometry({makeArray("heat", {1, 2, 3, NAN})}, makeArray("heat", {9}));
  lum::GeometryDrawable& second =
      addGeometry({makeArray("wind", {5, 0, 0, 6, 0, 0, 7, 0, 0, 8, 0, 0}, 3)}, makeArray("heat", {4}));
  lum::GeometryDrawable& third =
      addGeometry({makeArray("wind", {1, 1, 1, 1}), makeArray("Normals", std::vector<float>(12, 1.0F), 3)},
                  makeArray("short", {1, 2}));
  lum::ColorLookupTable& heat =
      vemo::colorByArray(first, "heat", lum::DataLocation::POINTS, {0, 0, 1, 1, 1, 0, 0, 1});
  lum::ColorLookupTable& wind = vemo::colorByArray(second, "wind", lum::DataLocation::POINTS, {1, 1, 1, 1});
  lum::LegendDrawable& heatLegend = addLegend(*this, "degrees", heat);
  lum::LegendDrawable& windLegend = addLegend(*this, "speed", wind);
};

TEST(SceneEditTest, ColoursAllGeometryThatHasAnArray) {
  Colored scene;
  EXPECT_THAT(lum::listColorArrays(scene.node()), ElementsAre("heat", "wind"));
  EXPECT_THAT(lum::listUsedColorArrays(scene.node()), ElementsAre("heat", "wind"));
  lum::colorByArray(scene.node(), "heat");
  EXPECT_THAT(lum::listUsedColorArrays(scene.node()), ElementsAre("heat"));
  EXPECT_EQ(scene.rangeOf(scene.first), (Range{1, 4}));
  EXPECT_EQ(scene.rangeOf(scene.second), (Range{1, 4}));
  EXPECT_EQ(scene.second.getAttributes<lum::DataLocationAttributes>().getDataLocation(),
            lum::DataLocation::CELLS);
  EXPECT_EQ(scene.wind.getColorValues(), scene.heat.getColorValues());
  EXPECT_EQ(scene.heatLegend.getColorLookupTable().getScalarRange(), (Range{1, 4}));
  EXPECT_EQ(scene.heatLegend.getLegendAttributes().getTitle(), "degrees");
  EXPECT_FALSE(lum::isShown(scene.windLegend)) << "of colours that nothing has";

  scene.heat.setUnknownEnds({true, false});
  lum::setColorRange(scene.node(), {-1, 1});
  EXPECT_EQ(scene.rangeOf(scene.second), (Range{-1, 1}));
  EXPECT_FALSE(scene.heat.getUnknownEnds()[0]) << "what was reported is another range";
  EXPECT_EQ(lum::findColorRange(scene.node(), "heat"), (Range{-1, 1}));
  EXPECT_EQ(lum::findColorRange(scene.node(), "wind"), std::nullopt) << "nothing has its colours any more";
  EXPECT_EQ(scene.heatLegend.getColorLookupTable().getScalarRange(), (Range{-1, 1}));
}

TEST(SceneEditTest, LegendsOfOtherColoursStay) {
  Colored scene;
  lum::colorByArray(scene.node(), "wind", Range{0, 2});
  EXPECT_EQ(scene.rangeOf(scene.third), (Range{0, 2}));
  EXPECT_EQ(scene.rangeOf(scene.first), (Range{0, 1})) << "it has no such array";
  EXPECT_EQ(scene.heatLegend.getColorLookupTable().getScalarRange(), (Range{0, 1}));
  EXPECT_EQ(scene.windLegend.getColorLookupTable().getScalarRange(), (Range{0, 2}));

  Colored plain;
  for (lum::GeometryDrawable* const drawable : {&plain.first, &plain.second}) {
    drawable->getColorAttributes()->setColorMode(lum::ColorMode::PLAIN);
  }
  plain.node().getForegroundCanvas().getDrawableCollection().removeAllNodes();
  lum::colorByArray(plain.node(), "wind");
  const auto legends = lum::findItems(plain.node(), "wind");
  ASSERT_EQ(legends.size(), 1U) << "a new one";
  EXPECT_EQ(static_cast<lum::LegendDrawable*>(legends[0])->getColorLookupTable().getScalarRange(),
            (Range{1, 8}));
}

TEST(SceneEditTest, ColoursStayAsTheyAreDrawnAndAreShownByALegend) {
  Colored scene;
  scene.heat.setScalarRange({4, 1});
  scene.heatLegend.getColorLookupTable().setScalarRange({4, 1});
  for (lum::LegendDrawable* const legend : {&scene.heatLegend, &scene.windLegend}) {
    lum::setShown(*legend, false);
  }
  ColorTable drawn = makeUsable(scene.heat).table;
  EXPECT_EQ(lum::findColorRange(scene.node(), "heat"), (Range{1, 4}));
  lum::setColorRange(scene.node(), {0, 2}, "heat");
  drawn.range = {0, 2};
  EXPECT_EQ(makeUsable(scene.heat).table, drawn);
  EXPECT_EQ(makeUsable(scene.heatLegend.getColorLookupTable()).table, drawn);

  scene.heat.setScalarRange({4, 1});
  drawn = makeUsable(scene.heat).table;
  lum::colorByArray(scene.node(), "heat");
  EXPECT_EQ(makeUsable(scene.heat).table, drawn);
  EXPECT_FALSE(lum::isShown(scene.heatLegend));
  const auto legends = lum::findItems(scene.node(), "heat");
  ASSERT_EQ(legends.size(), 1U);
  EXPECT_TRUE(lum::isShown(*legends[0]));
}

TEST(SceneEditTest, SaysWhatCannotBeUsed) {
  constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
  constexpr double MOST = std::numeric_limits<double>::max();
  Colored scene;
  auto& node = scene.node();
  const auto look = [&](const lum::Viewpoint& viewpoint) {
    return errorOf([&] { lum::setView(node, viewpoint); });
  };
  const auto color = [&](const Range& range) {
    return errorOf([&] { lum::colorByArray(node, "heat", range); });
  };
  const lum::CameraAttributes& camera = scene.canvas().getCameraAttributes();
  EXPECT_EQ(errorOf([&] { lum::colorByArray(node, "short"); }),
            R"(No geometry has an array "short"; the scene has "heat", "wind")");
  EXPECT_EQ(errorOf([&] {
              lum::setColorRange(node, {0, 1});
            }),
            R"(A range needs an array, as the scene is coloured by "heat", "wind")");
  EXPECT_EQ(color({2, 1}), "The range from 2 to 1 does not start below its end");
  EXPECT_EQ(color({NONE, 1}), "The range from nan to 1 is not finite");
  EXPECT_NE(color({-MOST, MOST}), "none");
  scene.heat.setScaleMode(lum::ScaleMode::LOG10);
  EXPECT_EQ(color({0, 1}), "The range from 0 to 1 does not start above 0, as logarithmic colours require");
  EXPECT_EQ(scene.rangeOf(scene.first), (Range{0, 1}));
  for (const lum::Viewpoint& wrong : {lum::Viewpoint{{1, 2, 3}, {1, 2, 3}, {0, 0, 1}, {}},
                                      {{1, 2, NONE}, {}, {0, 0, 1}, {}},
                                      {{0, 0, 1}, {}, {0, 0, 1}, {}},
                                      {{0, 0, 1}, {}, {}, {}},
                                      {{0, 0, 1}, {}, {0, 1, 0}, 0.0}}) {
    EXPECT_NE(look(wrong), "none");
  }
  EXPECT_EQ(camera.getPosition(), (Vector3{0, 0, 5}));
}

}  // namespace

}  // namespace vemo
