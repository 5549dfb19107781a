// What a scene asks for that cannot be drawn: what is made of it, and that a
// finding says so once.

#include "support/FoundFindings.h"
#include "support/SceneBuilder.h"
#include "support/TemporaryFolder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkCellData.h>
#include <vtkPointData.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>
#include <limits>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Range = Vector<2, double>;

/// Where black text stays black.
void makeGroundWhite(SceneBuilder& scene) {
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
}

// ---- Colormaps ----

/// Two pieces with other data, and a legend, of one colormap.
TEST(ColormapFindingsTest, SayWhatSurfacesAndLegendsAlikeAreShownWith) {
  const std::vector<double> colors = {1, 0, 0, 1, 0, 0, 1, 1};
  const auto linear = lum::ScaleMode::LINEAR;
  const auto log = lum::ScaleMode::LOG10;
  struct {
    const char* name;
    std::vector<double> colors;
    Range range;
    lum::ScaleMode scale;
    /// Of the table that is used: its first red, range and scale.
    int red;
    Range usedRange;
    bool isUsedLog;
  } const cases[] = {
      {"logarithm of zero", colors, {0, 100}, log, 255, {0.01, 100}, true},
      {"logarithm of less", colors, {-8, -2}, log, 255, {-8, -2}, false},
      {"greater value first", colors, {9, 2}, linear, 0, {2, 9}, false},
      {"greater value first, logarithmic", colors, {10, 0}, log, 0, {0.001, 10}, true},
      {"no colours", {}, {2, 9}, linear, 0, {2, 9}, false},
      {"one value", colors, {3, 3}, linear, 255, {3, 3}, false},
      {"not finite", colors, {-std::numeric_limits<double>::infinity(), 2}, linear, 255, {0, 1}, false},
      {"not a number", colors, {NAN, 2}, linear, 255, {0, 1}, false}};
  for (const auto& one : cases) {
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
    makeGroundWhite(scene);
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

// ---- Edges ----

TEST(EdgesTest, AreSeenHoweverClearTheFacesAre) {
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

lum::PointScaleAttributes& scaleBySize(lum::PointSphereDrawable& points, lum::PointScaleMode mode,
                                       const Range& values, const Range& sizes) {
  auto& scale = points.getAttributes<lum::PointScaleAttributes>();
  scale.setScaleMode(mode);
  scale.setScalarName("size");
  scale.setScalarRange(values);
  scale.setMapToRange(sizes);
  return scale;
}

struct ScaleCase {
  const char* name;
  std::vector<float> values;
  Range range;
  /// Of the meshes that the points are sorted into.
  std::vector<double> sizes;
  std::vector<std::string> codes;
};

TEST(PointScaleFindingsTest, SayWhatALogarithmIsMadeOf) {
  const ScaleCase cases[] = {
      {"all usable", {1, 10, 100, 1000}, {1, 1000}, {1, 6, 11, 16}, {}},
      {"begins at zero", {0, 10, 100, 1000}, {0, 1000}, {1, 9, 16}, {"point-scale-adjusted"}},
      {"nothing above zero", {0, -1, 0, -1}, {-1, 0}, {16}, {"points-not-scaled"}},
      {"ends at zero", {0, 10, 100, 1000}, {10, 0}, {16}, {"points-not-scaled"}},
      {"ends below zero", {0, 10, 100, 1000}, {-5, -1}, {16}, {"points-not-scaled"}},
      {"ends below the values", {0, 10, 100, 1000}, {0, 0.5}, {16}, {"points-not-scaled"}}};
  for (const ScaleCase& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    const auto geometry = makePolyData(flat({0, 0, 1, 0, 2, 0, 3, 0}), {.verts = {{0}, {1}, {2}, {3}}});
    geometry->GetPointData()->AddArray(makeArray("size", one.values));
    geometry->GetCellData()->AddArray(makeArray("color", {4, 3, 2, 1}));
    auto& points = scene.add<lum::PointSphereDrawable>(geometry);
    points.getAttributes<lum::PointSizeAttributes>().setPointSize(16);
    colorByArray(points, "color", lum::DataLocation::CELLS, {1, 0, 0, 1});
    scaleBySize(points, lum::PointScaleMode::LOG10, one.range, {1, 16});

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

TEST(PointScaleFindingsTest, SayWhichSizesCannotBeDrawn) {
  struct {
    Range sizes;
    bool isInPixels;
    bool isFinding;
  } const cases[] = {
      {{1, 4096}, true, false}, {{-2, 5000}, true, true}, {{0, NAN}, false, true}, {{1, 5000}, false, false}};
  for (const auto& one : cases) {
    SceneBuilder scene;
    const auto geometry = makePolyData(flat({0, 0, 1, 0}), {});
    geometry->GetPointData()->AddArray(makeArray("size", {1, 2}));
    auto& points = scene.add<lum::PointSphereDrawable>(geometry);
    scaleBySize(points, lum::PointScaleMode::LINEAR, {1, 2}, one.sizes).setPixelSize(one.isInPixels);
    const FoundFindings found;
    resolveScene(scene.node());
    EXPECT_EQ(found.codes(), std::vector<std::string>(one.isFinding ? 1 : 0, "point-scale-adjusted"))
        << one.sizes[0];
  }
}

// ---- Limits, and what has no place ----

template <class Drawable>
Drawable& decoration(SceneBuilder& scene) {
  return scene.drawables().findOrCreate<Drawable>("d");
}

lum::TextDrawable& addText(SceneBuilder& scene, const std::string& words) {
  auto& text = decoration<lum::TextDrawable>(scene);
  text.getAnnotationAttributes().setText(words);
  text.getAnnotationAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
  return text;
}

/// Of the scene's one text.
TextStyle styleOfText(const SceneBuilder& scene) {
  const ResolvedScene resolved = resolveScene(scene.node());
  return std::get<TextDecoration>(resolved.canvases.at(0).decorations.at(0).content).style;
}

/// A legend with a colour.
lum::LegendDrawable& addLegend(SceneBuilder& scene) {
  auto& legend = decoration<lum::LegendDrawable>(scene);
  legend.getColorLookupTable().setColorValues({1, 0, 0, 1});
  legend.getColorLookupTable().setNumColor(1);
  return legend;
}

void expectFindings(const char* name, std::size_t decorations, const std::vector<std::string>& codes,
                    void (*build)(SceneBuilder&)) {
  SCOPED_TRACE(name);
  SceneBuilder scene;
  scene.drawables();
  makeGroundWhite(scene);
  build(scene);
  const FoundFindings found;
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).decorations.size(), decorations);
  EXPECT_EQ(found.codes(), codes);
}

TEST(ResolverFindingsTest, SayWhatIsNotDrawnAsTheSceneSays) {
  const std::string limited = "decorations-limited";
  expectFindings("a transform that leaves nothing to be seen", 0, {"transform-unusable"}, [](auto& scene) {
    setTransform<lum::SimpleTransform>(addText(scene, "t")).setScale({1e-90, 1e-90, 1e-90});
  });
  expectFindings("2000 texts", 2000, {}, [](auto& scene) { repeat(addText(scene, "t"), {1, 0, 0}, 2000); });
  expectFindings("2001 texts", 2000, {limited}, [](auto& scene) {
    repeat(addText(scene, "t"), {1, 0, 0}, 2001);
  });
  expectFindings("2001 triads", 2000, {limited}, [](auto& scene) {
    repeat(decoration<lum::TriadDrawable>(scene), {1, 0, 0}, 2001);
  });
  expectFindings(
      "201 legends of a title and 9 numbers", 200, {"colormap-adjusted", limited}, [](auto& scene) {
        for (int i = 0; i < 201; ++i) {
          auto& legend = scene.drawables().template findOrCreate<lum::LegendDrawable>(std::to_string(i));
          legend.getColorLookupTable();
          legend.getLegendAttributes().setNumberOfLabels(9);
        }
      });
  expectFindings("a text nowhere", 0, {"decoration-not-drawn"}, [](auto& scene) {
    addText(scene, "t").getPositionAttributes().setPosition({NAN, 0, 0}, false);
  });
  expectFindings("a triad too far away", 0, {"decoration-not-drawn"}, [](auto& scene) {
    decoration<lum::TriadDrawable>(scene).getPositionAttributes().setPosition({1e38, 0, 0}, false);
  });
  expectFindings("a legend without a size", 0, {"decoration-not-drawn"}, [](auto& scene) {
    addLegend(scene).getLegendAttributes().setSize({NAN, 1});
  });
  expectFindings("a legend without colours", 0, {"legend-without-colormap"},
                 [](auto& scene) { decoration<lum::LegendDrawable>(scene); });
  expectFindings("a legend beside the window", 1, {"legend-moved"}, [](auto& scene) {
    addLegend(scene).getPositionAttributes().setPosition({0.95, 0, 0}, false);
  });
  expectFindings("a comb, which no fan of triangles fills", 0, {"polygons-folded"}, [](auto& scene) {
    scene.addSurface(makePolyData(flat({0, 0, 4, 0, 4, 4, 3, 4, 3, 2, 1, 2, 1, 4, 0, 4}),
                                  {.polys = {{0, 1, 2, 3, 4, 5, 6, 7}}}),
                     {1, 1, 1});
  });
  expectFindings("a text of 100 letters", 1, {}, [](auto& scene) { addText(scene, std::string(100, 'x')); });
  expectFindings("a text of 2000 letters", 1, {"text-changed"},
                 [](auto& scene) { addText(scene, std::string(2000, 'x')); });
  expectFindings("a label that is cut off", 1, {"text-changed"}, [](auto& scene) {
    decoration<lum::TriadDrawable>(scene).getTriadAttributes().setXAxisLabelText(std::string(2500, 'x'));
  });
  expectFindings("a text in Hebrew", 1, {"text-not-shaped"}, [](auto& scene) { addText(scene, "\xD7\xA9"); });
  expectFindings("a longer text", 1, {"text-changed"},
                 [](auto& scene) { addText(scene, std::string(2001, 'x')); });
  expectFindings("a text in another encoding", 1, {"text-changed"},
                 [](auto& scene) { addText(scene, "gr\xF6\xDF"); });
  expectFindings("a character that fonts have and VTK does not draw", 1, {"glyph-missing"},
                 [](auto& scene) { addText(scene, "a \U0001F600"); });
  expectFindings("a mirror too far away", 1, {"transform-unusable"}, [](auto& scene) {
    setTransform<lum::SymmetricTransform>(addText(scene, "t")).setPlane({1, 0, 0, 1e31});
  });
  expectFindings("a transform without a number", 1, {"transform-unusable"}, [](auto& scene) {
    setTransform<lum::SimpleTransform>(addText(scene, "t")).setTranslation({NAN, 0, 0});
  });
  expectFindings("a character that nothing has, 3 times", 3, {"glyph-missing"}, [](auto& scene) {
    repeat(addText(scene, "a \xEE\x84\xA3"), {1, 0, 0}, 3);
  });
}

TEST(ResolverFindingsTest, SayWhatIsTooSmallOrTooFarToBeSeen) {
  struct {
    float size;
    double scale, distance;
    bool isFramed;
    std::size_t findings;
  } const cases[] = {{1e-19F, 1, 0, true, 0}, {1e-10F, 1e-12, 0, true, 1}, {1e-10F, 1e-12, 0, false, 0},
                     {0, 1, 0, true, 0},      {1e36F, 1, 0, true, 0},      {1e30F, 1e8, 0, false, 1},
                     {1, 1, 1e4, true, 0},    {1, 1, 1e6, true, 1},        {1, 1, 1e6, false, 0}};
  for (const auto& [size, scale, distance, isFramed, findings] : cases) {
    SceneBuilder scene;
    const auto square = makeRectangle(0, size, 0, size);
    auto& transform = setTransform<lum::SimpleTransform>(scene.addSurface(square, {1, 1, 1}));
    transform.setScale({scale, scale, scale});
    transform.setTranslation({distance, 0, 0});
    if (distance > 0.0) {
      scene.addSurface(square, {1, 1, 1});
    }
    if (isFramed) {
      scene.canvas().getCameraAttributes().setParallelScale({});
    }
    const FoundFindings found;
    resolveScene(scene.node());
    EXPECT_EQ(found.codes(), std::vector<std::string>(findings, "geometry-not-drawn")) << size << distance;
  }
}

TEST(ResolverFindingsTest, SayWhatViewsDoNotShow) {
  using Codes = std::vector<std::string>;
  constexpr double PERSPECTIVE = 0.0;
  const struct {
    const char* name;
    Vector3 position, focalPoint;
    double scale;
    Codes codes;
  } cases[] = {{"all of it", {0, 0, 9}, {}, 2, {}},
               {"an edge", {2.9, 0, 9}, {2.9, 0, 0}, 2, {}},
               {"above it", {0, 3.5, 9}, {0, 3.5, 0}, 2, {"view-empty"}},
               {"beside it", {42, 0, 9}, {42, 0, 0}, 2, {"view-empty"}},
               {"beside it in wide pictures too", {33, 0, 9}, {33, 0, 0}, 2, {}},
               {"behind the camera", {0, 0, 9}, {0, 0, 10}, 2, {"view-empty"}},
               {"from its plane", {9, 0, 0}, {0, 0, 0}, 2, {}},
               {"below it in perspective", {0, -5, 9}, {0, -5, 0}, PERSPECTIVE, {"view-empty"}},
               {"its middle from nearby", {0, 0, 1e-9}, {}, PERSPECTIVE, {}},
               {"a small part", {0, 0, 9}, {}, 1e-4, {}},
               {"too small a part", {0, 0, 9}, {}, 1e-6, {"view-imprecise"}},
               {"everything", {0, 0, 9}, {}, NAN, {"view-adjusted"}}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 1, 1});
    auto& camera = scene.canvas().getCameraAttributes();
    using Mode = lum::CameraAttributes::ProjectionMode;
    camera.setProjectionMode(one.scale == PERSPECTIVE ? Mode::PERSPECTIVE : Mode::PARALLEL);
    camera.setPosition(one.position);
    camera.setFocalPoint(one.focalPoint);
    camera.setViewUp(one.position[0] == 9 ? Vector3{0, 0, 1} : Vector3{0, 1, 0});
    camera.setParallelScale(one.scale);
    const FoundFindings found;
    resolveScene(scene.node());
    EXPECT_EQ(found.codes(), one.codes);
  }
}

TEST(ResolverFindingsTest, SayWhichTextsAreTooFarFromTheModel) {
  for (const bool isFramed : {true, false}) {
    SceneBuilder scene;
    scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 1, 1});
    makeGroundWhite(scene);
    repeat(addText(scene, "t"), {6, 0, 0}, 3);
    if (isFramed) {
      scene.canvas().getCameraAttributes().setParallelScale({});
    }
    const FoundFindings found;
    const ResolvedScene resolved = resolveScene(scene.node());
    std::vector<bool> framed;
    for (const Decoration& decoration : resolved.canvases.at(0).decorations) {
      framed.push_back(std::get<TextDecoration>(decoration.content).isFramed);
    }
    EXPECT_EQ(framed, (std::vector<bool>{true, true, !isFramed}));
    EXPECT_EQ(found.codes(), std::vector<std::string>(isFramed ? 1 : 0, "text-not-framed"));
  }
}

TEST(ResolverFindingsTest, SayWhichTextsAndImagesCannotBeSeen) {
  using Space = lum::CoordinateSpace;
  struct {
    const char* name;
    Space space;
    Vector3 position, xAxis, yAxis;
    std::size_t texts, images;
  } const cases[] = {{"in the window", Space::WINDOW, {0.9, 0.9, 0}, {1, 0, 0}, {0, 1, 0}, 1, 1},
                     {"partly on its left", Space::WINDOW, {-0.9, 0, 0}, {1, 0, 0}, {0, 1, 0}, 1, 1},
                     {"on its right", Space::WINDOW, {1, 0, 0}, {1, 0, 0}, {0, 1, 0}, 0, 0},
                     {"above it", Space::WINDOW, {0, 1, 0}, {1, 0, 0}, {0, 1, 0}, 0, 0},
                     {"beside what a window shows", Space::MODEL, {9, 9, 0}, {1, 0, 0}, {0, 1, 0}, 1, 1},
                     {"no area", Space::MODEL, {}, {1, 0, 0}, {1, 0, 0}, 1, 0},
                     {"too small", Space::MODEL, {}, {1e-21, 0, 0}, {0, 1e-21, 0}, 1, 0},
                     {"too large", Space::MODEL, {}, {1e38, 0, 0}, {0, 1, 0}, 1, 0}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    SceneBuilder scene;
    makeGroundWhite(scene);
    auto& text = addText(scene, "t");
    text.getAnnotationAttributes().setCoordinateSpace(one.space);
    text.getPositionAttributes().setPosition(one.position, false);
    auto& image = decoration<lum::ImageDrawable>(scene);
    image.getPositionAttributes().setPosition(one.position, false);
    auto& attributes = image.getImageAttributes();
    attributes.setPixels(makeArray<vtkUnsignedCharArray>("", {1}), 1, 1);
    attributes.setCoordinateSpace(one.space);
    attributes.setXAxis(one.xAxis);
    attributes.setYAxis(one.yAxis);
    const FoundFindings found;
    EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).decorations.size(), one.texts + one.images);
    EXPECT_EQ(found.codes(), std::vector<std::string>(2 - one.texts - one.images, "decoration-not-drawn"));
  }
}

TEST(ResolverFindingsTest, NameTheirNodeAndComeOnce) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  auto& assembly = scene.drawables().findOrCreate<lum::DrawableCollection>("wing/left");
  setTransform<lum::SimpleTransform>(assembly).setTranslation({1e60, 0, 0});
  for (int i = 0; i < 2; ++i) {
    const auto text = make<lum::TextDrawable>();
    text->setName("label");
    text->getAnnotationAttributes().setText("\xF6");
    scene.drawables().addNode(*text);
  }
  for (int i = 0; i < 17; ++i) {
    scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>(std::to_string(i));
  }
  std::vector<Finding> found;
  const FindingCapture capture(found);
  SceneResolver resolver(scene.node());
  static_cast<void>(resolver.resolve());
  static_cast<void>(resolver.update(0));
  std::vector<std::string> places;
  std::ranges::transform(found, std::back_inserter(places), [](const Finding& finding) {
    return finding.getKind().name + " " + finding.nodePath;
  });
  EXPECT_THAT(places,
              testing::UnorderedElementsAre(
                  "transform-unusable ModelCanvas/DrawableCollection/wing~1left",
                  "text-changed ModelCanvas/DrawableCollection/label",
                  "text-changed ModelCanvas/DrawableCollection/label~#2",
                  "lights-limited ModelCanvas/AttributesCollection/LightingAttributes/LightCollection/16"));
}

// ---- Text ----

TEST(BlackTextTest, IsWhiteOnADarkGround) {
  struct {
    lum::BackgroundColorModes mode;
    Vector3 first, second;
    bool isWhite;
  } const cases[] = {{lum::BackgroundColorModes::SOLID, {0, 0, 0.5}, {}, true},
                     {lum::BackgroundColorModes::SOLID, {0.5, 0.5, 0.5}, {}, false},
                     {lum::BackgroundColorModes::TOP_BOTTOM, {0.4, 0.4, 0.4}, {0, 0, 0}, true},
                     {lum::BackgroundColorModes::RADIAL, {1, 1, 1}, {0, 0, 0}, false}};
  for (const auto& one : cases) {
    SceneBuilder scene;
    auto& background = scene.node().getBackgroundCanvas().getBackgroundAttributes();
    background.setColorMode(one.mode);
    background.setSolidColor(one.first);
    background.setColor1(one.first);
    background.setColor2(one.second);
    addText(scene, "t");
    const FoundFindings found;
    const std::uint8_t channel = one.isWhite ? 255 : 0;
    EXPECT_THAT(styleOfText(scene).rgba, ElementsAre(channel, channel, channel, 255));
    EXPECT_EQ(found.codes(), std::vector<std::string>(one.isWhite ? 1 : 0, "text-recolored"));
    addText(scene, "t").getTextAttributes().setForegroundColor(0x200000FF);
    EXPECT_EQ(styleOfText(scene).rgba[0], 0x20) << "a colour that was chosen";
  }
}

// ---- Fonts ----

const std::filesystem::path DEJAVU = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

class FontsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(DEJAVU)) {
      GTEST_SKIP() << "the package fonts-dejavu-core is not installed";
    }
  }

  SceneBuilder scene;
};

TEST_F(FontsTest, AreFoundInFoldersThatTheEnvironmentLists) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder / "own/sub");
  std::filesystem::copy(DEJAVU, folder / "own/sub/Other.ttf");
  std::filesystem::copy(DEJAVU, folder / "own/DejaVuSans.ttf");
  addText(scene, "\u03C3");
  ::setenv("VEMO_FONT_PATH", ("/absent:" + (folder / "own").string()).c_str(), 1);
  const TextStyle style = styleOfText(scene);
  ::unsetenv("VEMO_FONT_PATH");
  EXPECT_EQ(style.fontFile, (folder / "own/DejaVuSans.ttf").string());
}

TEST_F(FontsTest, AreFoundForWhatTheBuiltInOnesLack) {
  makeGroundWhite(scene);
  auto& text = addText(scene, "\u00E9 \u00B0 \u00B2");
  EXPECT_EQ(styleOfText(scene).fontFile, "");
  text.getAnnotationAttributes().setText("\u03C3 \u03A9 \u221E \u2264 \u20AC \u0394 \u00B0 \u00B2");
  for (const char* const family : {"Arial", "Courier", "Times"}) {
    for (const std::uint32_t fontStyle : {0U, std::uint32_t{lum::TextAttributes::BOLD}}) {
      text.getTextAttributes().setFontFamilyName(family);
      text.getTextAttributes().setFontStyle(fontStyle);
      const FoundFindings found;
      const std::string file = styleOfText(scene).fontFile;
      EXPECT_THAT(found.codes(), IsEmpty());
      EXPECT_TRUE(std::filesystem::exists(file)) << family;
      EXPECT_EQ(file.find("Bold") != std::string::npos, fontStyle != 0) << family;
    }
  }
}

}  // namespace

}  // namespace vemo
