// What a scene asks for that cannot be drawn: what is made of it, and that a
// finding says so once.

#include "support/FoundFindings.h"
#include "support/SceneBuilder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>

#include <vtkCellData.h>
#include <vtkPointData.h>
#include <vtkUnsignedCharArray.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Range = Vector<2, double>;

constexpr double INFINITE = std::numeric_limits<double>::infinity();

// ---- Colormaps ----

struct TableCase {
  const char* name;
  std::vector<double> colors;
  Range range;
  lum::ScaleMode scale;
  /// Of the table that is used: its first red, range and scale.
  int red;
  Range usedRange;
  bool isUsedLog;
};

/// Two pieces with other data, and a legend, of one colormap.
TEST(ColormapFindings, SayWhatSurfacesAndLegendsAlikeAreShownWith) {
  const std::vector<double> colors = {1, 0, 0, 1, 0, 0, 1, 1};
  const auto linear = lum::ScaleMode::LINEAR;
  const auto log = lum::ScaleMode::LOG10;
  const TableCase cases[] = {{"logarithm of zero", colors, {0, 100}, log, 255, {0.01, 100}, true},
                             {"logarithm of less", colors, {-8, -2}, log, 255, {-8, -2}, false},
                             {"greater value first", colors, {9, 2}, linear, 0, {2, 9}, false},
                             {"greater value first, logarithmic", colors, {10, 0}, log, 0, {0.001, 10}, true},
                             {"no colours", {}, {2, 9}, linear, 0, {2, 9}, false},
                             {"one value", colors, {3, 3}, linear, 255, {3, 3}, false},
                             {"not finite", colors, {-INFINITE, 2}, linear, 255, {0, 1}, false},
                             {"not a number", colors, {NAN, 2}, linear, 255, {0, 1}, false}};
  for (const TableCase& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    const auto set = [&](lum::ColorLookupTable& table) {
      table.setColorValues(one.colors);
      table.setNumColor(static_cast<int>(one.colors.size() / 4));
      table.setScalarRange(one.range);
      table.setScaleMode(one.scale);
    };
    for (const float value : {1.0F, 50.0F}) {
      const auto geometry = makeRectangle(0, 1, 0, 1);
      geometry->GetPointData()->AddArray(makeArray("t", {value, 2 * value, 3 * value, 4 * value}));
      set(colorByArray(scene.addSurface(geometry, {1, 1, 1}), "t", lum::DataLocation::POINTS));
    }
    auto& foreground = scene.node().getForegroundCanvas().getDrawableCollection();
    set(foreground.findOrCreate<lum::LegendDrawable>("legend").getColorLookupTable());

    const FoundFindings found;
    const ResolvedScene resolved = resolveScene(scene.node());
    EXPECT_THAT(found.codes(), ElementsAre("colormap-adjusted"));
    const auto& meshes = resolved.canvases.at(0).meshes;
    const ColorTable& table = *meshes.at(0).scalars->table;
    EXPECT_EQ(table.rgba.at(0), one.red);
    EXPECT_EQ(table.range, one.usedRange);
    EXPECT_EQ(table.isLog10, one.isUsedLog);
    EXPECT_EQ(meshes.at(1).scalars->table, meshes.at(0).scalars->table);
    const auto& legend = std::get<LegendDecoration>(resolved.canvases.at(1).decorations.at(0).content);
    EXPECT_EQ(legend.table, table);
  }
}

TEST(Colormap, IsNotMadeUpForDataWithoutOne) {
  SceneBuilder scene;
  const auto geometry = makeRectangle(0, 1, 0, 1);
  geometry->GetPointData()->AddArray(makeArray("t", {1, 2, 3, 4}));
  auto& surface = scene.addSurface(geometry, {0.5, 0.25, 1});
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("t");
  const auto mesh = resolveScene(scene.node()).canvases.at(0).meshes.at(0);
  EXPECT_FALSE(mesh.scalars);
  EXPECT_EQ(mesh.color, (Vector<3, double>{0.5, 0.25, 1}));
}

// ---- Edges ----

TEST(Edges, AreSeenHoweverClearTheFacesAre) {
  SceneBuilder scene;
  auto& surface = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 1, 1});
  auto& edges = surface.getAttributes<lum::MeshAttributes>();
  surface.getColorAttributes()->setOpacity(0, false);
  surface.getAttributes<lum::ContourAttributes>().setContourVisible(true);
  edges.setMeshVisible(true, false);
  edges.setMeshOpacity(0.5);
  const auto resolved = resolveScene(scene.node());
  const Appearance& appearance = resolved.canvases.at(0).meshes.at(0).appearance;
  EXPECT_FALSE(appearance.hasFaces);
  EXPECT_TRUE(appearance.hasEdges && appearance.hasContour);
  EXPECT_EQ(appearance.edgeOpacity, 0.5);
  edges.setMeshOpacity(0);
  EXPECT_THAT(resolveScene(scene.node()).canvases.at(0).meshes, IsEmpty());
}

// ---- Points ----

struct ScaleCase {
  const char* name;
  std::vector<float> values;
  Range range;
  /// Of the meshes that the points are sorted into.
  std::vector<double> sizes;
  std::vector<std::string> codes;
};

TEST(PointScaleFindings, SayWhatALogarithmIsMadeOf) {
  const ScaleCase cases[] = {
      {"all usable", {1, 10, 100, 1000}, {1, 1000}, {1, 6, 11, 16}, {}},
      {"begins at zero", {0, 10, 100, 1000}, {0, 1000}, {1, 9, 16}, {"point-scale-adjusted"}},
      {"nothing above zero", {0, -1, 0, -1}, {-1, 0}, {16}, {"points-not-scaled"}}};
  for (const ScaleCase& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    const auto geometry = makePolyData(flat({0, 0, 1, 0, 2, 0, 3, 0}), {.verts = {{0}, {1}, {2}, {3}}});
    geometry->GetPointData()->AddArray(makeArray("size", one.values));
    geometry->GetCellData()->AddArray(makeArray("color", {4, 3, 2, 1}));
    auto& points = scene.add<lum::PointSphereDrawable>(geometry);
    points.getAttributes<lum::PointSizeAttributes>().setPointSize(16);
    colorByArray(points, "color", lum::DataLocation::CELLS, {1, 0, 0, 1});
    auto& scale = points.getAttributes<lum::PointScaleAttributes>();
    scale.setScaleMode(lum::PointScaleMode::LOG10);
    scale.setScalarName("size");
    scale.setScalarRange(one.range);
    scale.setMapToRange({1, 16});

    const FoundFindings found;
    const auto meshes = resolveScene(scene.node()).canvases.at(0).meshes;
    EXPECT_EQ(found.codes(), one.codes);
    std::vector<double> sizes;
    for (const MeshInstance& mesh : meshes) {
      sizes.push_back(std::round(mesh.appearance.pointSize));
      // Values at the vertices stay with them.
      vtkIdType size = 0;
      const vtkIdType* corner = nullptr;
      mesh.geometry->GetVerts()->GetCellAtId(0, size, corner);
      EXPECT_EQ(mesh.geometry->GetCellData()->GetArray("color")->GetComponent(0, 0),
                4.0 - static_cast<double>(*corner));
    }
    EXPECT_EQ(sizes, one.sizes);
  }
}

// ---- Limits, and what has no place ----

struct FindingCase {
  const char* name;
  std::function<void(SceneBuilder&)> build;
  std::vector<std::string> codes;
};

template <class Drawable>
Drawable& decoration(SceneBuilder& scene) {
  return scene.drawables().findOrCreate<Drawable>("d");
}

void repeat(lum::Drawable& drawable, int count) {
  auto& transform = setTransform<lum::PeriodicRepeatTransform>(drawable);
  transform.setTranslation({1, 0, 0});
  transform.setNumRepeats(count);
}

lum::TextDrawable& addText(SceneBuilder& scene, const std::string& words) {
  auto& text = decoration<lum::TextDrawable>(scene);
  text.getAnnotationAttributes().setText(words);
  text.getAnnotationAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
  return text;
}

void addLights(SceneBuilder& scene, int count) {
  for (int i = 0; i < count; ++i) {
    scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>(std::to_string(i));
  }
}

TEST(ResolverFindings, SayWhatIsNotDrawnAsTheSceneSays) {
  const std::string limited = "decorations-limited";
  const FindingCase cases[] = {
      {"a transform that leaves nothing to be seen",
       [](auto& scene) {
         setTransform<lum::SimpleTransform>(addText(scene, "t")).setScale({1e-90, 1e-90, 1e-90});
       },
       {"transform-unusable"}},
      {"2000 texts", [](auto& scene) { repeat(addText(scene, "t"), 2000); }, {}},
      {"2001 texts", [](auto& scene) { repeat(addText(scene, "t"), 2001); }, {limited}},
      {"2001 triads", [](auto& scene) { repeat(decoration<lum::TriadDrawable>(scene), 2001); }, {limited}},
      {"2001 legends",
       [](auto& scene) {
         for (int i = 0; i < 2001; ++i) {
           scene.drawables()
               .template findOrCreate<lum::LegendDrawable>(std::to_string(i))
               .getColorLookupTable();
         }
       },
       // Their colormap has no colours.
       {"colormap-adjusted", limited}},
      {"16 lights", [](auto& scene) { addLights(scene, 16); }, {}},
      {"17 lights", [](auto& scene) { addLights(scene, 17); }, {"lights-limited"}},
      {"17 planes",
       [](auto& scene) {
         for (int i = 0; i < 17; ++i) {
           scene.clip({0, 0, 1}, {0, 0, -1.0 * i});
         }
       },
       {"planes-limited"}},
      {"a plane without a direction",
       [](auto& scene) {
         scene.clip({NAN, 0, 1}, {0, 0, 0});
       },
       {"value-ignored"}},
      {"a text nowhere",
       [](auto& scene) {
         addText(scene, "t").getPositionAttributes().setPosition({NAN, 0, 0}, false);
       },
       {"decoration-not-drawn"}},
      {"an image without an area",
       [](auto& scene) {
         auto& image = decoration<lum::ImageDrawable>(scene).getImageAttributes();
         image.setPixels(makeArray<vtkUnsignedCharArray>("", {1}), 1, 1);
         image.setYAxis(image.getXAxis());
       },
       {"decoration-not-drawn"}},
      {"a legend without colours",
       [](auto& scene) { decoration<lum::LegendDrawable>(scene); },
       {"legend-without-colormap"}},
      {"a legend beside the window",
       [](auto& scene) {
         auto& legend = decoration<lum::LegendDrawable>(scene);
         legend.getColorLookupTable().setColorValues({1, 0, 0, 1});
         legend.getColorLookupTable().setNumColor(1);
         legend.getPositionAttributes().setPosition({0.95, 0, 0}, false);
       },
       {"legend-moved"}},
      {"a text of 2000 letters", [](auto& scene) { addText(scene, std::string(2000, 'x')); }, {}},
      {"a longer text", [](auto& scene) { addText(scene, std::string(2001, 'x')); }, {"text-changed"}},
      {"a text in another encoding", [](auto& scene) { addText(scene, "gr\xF6\xDF"); }, {"text-changed"}},
      {"a character that nothing has, 3 times",
       [](auto& scene) { repeat(addText(scene, "a \xEE\x84\xA3"), 3); },
       {"glyph-missing"}},
  };
  for (const FindingCase& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    scene.drawables();
    one.build(scene);
    const FoundFindings found;
    const ResolvedScene resolved = resolveScene(scene.node());
    EXPECT_EQ(found.codes(), one.codes);
    EXPECT_LE(resolved.canvases.at(0).decorations.size(), 2000U);
  }
}

// ---- Fonts ----

TEST(Fonts, AreFoundForWhatTheBuiltInOnesLack) {
  if (!std::filesystem::exists("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")) {
    GTEST_SKIP() << "the package fonts-dejavu-core is not installed";
  }
  for (const char* const family : {"Arial", "Courier", "Times"}) {
    for (const std::uint32_t style : {0U, std::uint32_t{lum::TextAttributes::BOLD}}) {
      SceneBuilder scene;
      auto& text = addText(scene, "\u03C3 \u03A9 \u221E \u2264 \u20AC \u0394 \u00B0 \u00B2");
      text.getTextAttributes().setFontFamilyName(family);
      text.getTextAttributes().setFontStyle(style);
      const FoundFindings found;
      const ResolvedScene resolved = resolveScene(scene.node());
      EXPECT_THAT(found.codes(), IsEmpty());
      const auto& decoration = std::get<TextDecoration>(resolved.canvases.at(0).decorations.at(0).content);
      EXPECT_TRUE(std::filesystem::exists(decoration.style.fontFile)) << family;
      EXPECT_EQ(decoration.style.fontFile.find("Bold") != std::string::npos, style != 0) << family;
    }
  }
  SceneBuilder scene;
  addText(scene, "\u00E9 \u00B0 \u00B2");
  const ResolvedScene resolved = resolveScene(scene.node());
  EXPECT_EQ(std::get<TextDecoration>(resolved.canvases.at(0).decorations.at(0).content).style.fontFile, "");
}

}  // namespace

}  // namespace vemo
