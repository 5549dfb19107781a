// What texts in tests/data/expected/resolution cannot say, of findings and fonts.

#include "support/Files.h"
#include "support/FoundFindings.h"
#include "support/Meshes.h"
#include "support/SceneBuilder.h"
#include "support/TemporaryFolder.h"
#include <vemo/resolve/SceneResolver.h>
#include <vemo/scenegraph/canvas/BaseCanvasAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/edit/View.h>

#include <vtkPointData.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Where black text stays black.
void makeGroundWhite(SceneBuilder& scene) {
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 1, 1});
}

lum::TextDrawable& addText(SceneBuilder& scene, const std::string& words) {
  auto& text = scene.drawables().findOrCreate<lum::TextDrawable>();
  text.getAnnotationAttributes().setText(words);
  return text;
}

/// Of the scene's one text.
TextStyle styleOfText(const SceneBuilder& scene) {
  const ResolvedScene resolved = resolveScene(scene.node());
  return std::get<TextDecoration>(resolved.canvases.at(0).decorations.at(0).content).style;
}

TEST(ResolverFindingsTest, SayWhichTextsAreChanged) {
  for (const auto& [words, isChanged] : {std::pair(std::string(100, 'x'), false),
                                         {std::string(2000, 'x'), true},
                                         {std::string("gr\xF6\xDF"), true}}) {
    SceneBuilder scene;
    makeGroundWhite(scene);
    addText(scene, words);
    const FoundFindings found;
    styleOfText(scene);
    EXPECT_EQ(found.codes(), std::vector<std::string>(isChanged ? 1 : 0, "text-changed")) << words;
  }
  SceneBuilder scene;
  makeGroundWhite(scene);
  scene.drawables().findOrCreate<lum::TriadDrawable>().getTriadAttributes().setXAxisLabelText(
      std::string(2500, 'x'));
  const FoundFindings found;
  resolveScene(scene.node());
  EXPECT_THAT(found.codes(), ElementsAre("text-changed"));
}

/// Ten times as wide as high, to the right of its place and above it.
std::optional<TextBox> measure(const TextDecoration& /*text*/, double lineHeight) {
  return TextBox{{0, 0}, {10 * lineHeight, lineHeight}};
}

std::vector<std::string> findingsOf(const SceneBuilder& scene, const ResolveOptions& options = {}) {
  const FoundFindings found;
  SceneResolver(scene.node(), options).resolve();
  return found.codes();
}

TEST(ResolverFindingsTest, SayWhichPointsAreTooLargeForAScaledPicture) {
  for (const bool isInPixels : {true, false}) {
    SceneBuilder scene;
    const auto geometry = makePolyData({{0, 0, 0}, {1, 0, 0}}, {});
    geometry->GetPointData()->AddArray(makeArray("size", {1, 1}));
    auto& points = scene.add<lum::PointSphereDrawable>(geometry);
    points.getAttributes<lum::PointSizeAttributes>().setPointSize(60);
    auto& scale = points.getAttributes<lum::PointScaleAttributes>();
    scale.setScaleMode(isInPixels ? lum::PointScaleMode::CONSTANT : lum::PointScaleMode::LINEAR);
    scale.setScalarName("size");
    scale.setMapToRange({0.1, 0.1});
    scale.setPixelSize(isInPixels);
    EXPECT_THAT(findingsOf(scene), IsEmpty());
    const auto findings = [&](double pixelScale, double height) {
      return findingsOf(scene, {.view = {.pixelScale = pixelScale, .pictureHeight = height}});
    };
    EXPECT_THAT(findings(4, 4 * 768), ElementsAre("value-ignored"));
    EXPECT_EQ(findings(1, 4 * 768).empty(), isInPixels);
    EXPECT_EQ(findings(4, 768).empty(), !isInPixels);
  }
}

TEST(ResolverFindingsTest, SayWhichTextsTheWindowCutsOff) {
  const struct {
    Vector3 position;
    std::vector<std::string> measured;
    std::vector<std::string> estimated;
  } cases[] = {{{0.69, 0.95, 0}, {}, {}},
               {{0.71, 0, 0}, {"decoration-cut"}, {}},
               {{0, 0.97, 0}, {"decoration-cut"}, {}},
               {{-0.01, 0, 0}, {"decoration-cut"}, {}},
               {{0, -0.01, 0}, {"decoration-cut"}, {}},
               {{0.9995, 0, 0}, {"decoration-not-drawn"}, {"decoration-not-drawn"}},
               {{-0.2, 0, 0}, {"decoration-cut"}, {"decoration-not-drawn"}},
               {{0, -0.05, 0}, {"decoration-not-drawn"}, {"decoration-not-drawn"}}};
  for (const auto& [position, measured, estimated] : cases) {
    SceneBuilder scene;
    makeGroundWhite(scene);
    addText(scene, "x").getPositionAttributes().setPosition(position, false);
    SCOPED_TRACE(position[0] + position[1]);
    EXPECT_EQ(findingsOf(scene, {.measureText = measure}), measured);
    EXPECT_EQ(findingsOf(scene), estimated);
  }
}

TEST(ResolverFindingsTest, SayWhatAViewOfEverythingCutsOff) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  auto& text = addText(scene, "x");
  text.getAnnotationAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
  text.getPositionAttributes().setPosition({1, 0, 0}, false);
  auto& triad = scene.drawables().findOrCreate<lum::TriadDrawable>();
  triad.getTriadAttributes().setXAxisLabelText("x");
  triad.getPositionAttributes().setPosition({1, 0, 0}, false);
  EXPECT_THAT(findingsOf(scene, {.measureText = measure}), IsEmpty()) << "in a stated view";
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  EXPECT_THAT(findingsOf(scene, {.measureText = measure}), ElementsAre("decoration-cut", "decoration-cut"));
}

TEST(ResolverFindingsTest, KnowThatANarrowCanvasIsSeenFromFurtherAway) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  scene.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.8, 0});
  scene.canvas().getCameraAttributes().setParallelScale(std::nullopt);
  scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  auto& text = addText(scene, "x");
  text.getAnnotationAttributes().setCoordinateSpace(lum::CoordinateSpace::MODEL);
  text.getPositionAttributes().setPosition({1, 0, 0}, false);
  EXPECT_THAT(findingsOf(scene), IsEmpty());
}

TEST(ResolverFindingsTest, KnowThatATriadThatTurnsIsSmallerInANarrowCanvas) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  scene.canvas().getAttributes<lum::CanvasPositionAttributes>().setPosition({0.9, 0});
  auto& triad = scene.drawables().findOrCreate<lum::TriadDrawable>();
  triad.getTriadAttributes().setAxisLabelHeight(0.1);
  triad.getPositionAttributes().setPosition({-0.4, 0, 0}, false);
  EXPECT_THAT(findingsOf(scene), IsEmpty());
  triad.setCameraAttributes(&scene.canvas().getCameraAttributes());
  EXPECT_THAT(findingsOf(scene), ElementsAre("decoration-not-in-view"));
}

TEST(ResolverFindingsTest, SayThatACanvasIsOutsideTheWindow) {
  const struct {
    Vector<2, double> position;
    Vector<2, double> size;
    bool hasText;
    std::vector<std::string> expected;
  } cases[] = {{{0.9, 0.9}, {0.5, 0.5}, true, {}},
               {{1.0, 0.0}, {1.0, 1.0}, true, {"scene-not-drawn"}},
               {{0.0, 0.0}, {1.0, 0.0}, true, {"scene-not-drawn"}},
               {{1.0, 0.0}, {1.0, 1.0}, false, {}}};
  for (const auto& [position, size, hasText, expected] : cases) {
    SceneBuilder scene;
    makeGroundWhite(scene);
    lum::SceneCanvas& canvas = scene.node().getForegroundCanvas();
    canvas.getAttributes<lum::CanvasPositionAttributes>().setPosition(position);
    canvas.getAttributes<lum::BaseCanvasAttributes>().setSize(size);
    auto& text = scene.collectionIn(canvas.getDrawableCollection()).findOrCreate<lum::TextDrawable>();
    text.getAnnotationAttributes().setText("x");
    text.getBaseAttributes().setVisibility(hasText, false);
    EXPECT_EQ(findingsOf(scene), expected) << position << size;
  }
}

TEST(ResolverFindingsTest, SayThatATriadIsBehindTheCameraWhateverTheAngle) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  lum::setView(scene.node(), lum::Viewpoint{{0, 0, 5}, {0, 0, 0}, {0, 1, 0}, std::nullopt});
  auto& triad = scene.drawables().findOrCreate<lum::TriadDrawable>();
  triad.getTriadAttributes().setAxisLabelHeight(0.5);
  triad.getPositionAttributes().setPosition({0, 0, 5.01}, false);
  EXPECT_THAT(findingsOf(scene, {.view = {.viewAngle = 120.0}}), ElementsAre("decoration-not-in-view"));
}

TEST(ResolverFindingsTest, AreAboutTheViewThatIsDrawn) {
  SceneBuilder scene;
  auto& surface = scene.addSurface(makeRectangle(5, 6, 0, 1), {1, 0, 0});
  lum::setView(scene.node(), lum::Viewpoint{{0, 0, 10}, {0, 0, 0}, {0, 1, 0}, 1.0});
  EXPECT_THAT(findingsOf(scene), ElementsAre("view-empty"));
  EXPECT_THAT(findingsOf(scene, {.view = {.fitted = {&surface}}}), IsEmpty());
  EXPECT_THAT(findingsOf(scene, {.view = {.fitsModel = true}}), IsEmpty());
  const auto& point = scene.add<lum::PointSphereDrawable>(makePolyData({{9, 9, 9}}, {.verts = {{0}}}));
  EXPECT_THAT(findingsOf(scene, {.view = {.fitted = {&point}}}), IsEmpty());
  lum::setView(scene.node(), lum::Viewpoint{{0, 0, 10}, {0, 0, 0}, {0, 1, 0}, std::nullopt});
  EXPECT_THAT(findingsOf(scene), ElementsAre("view-empty"));
  EXPECT_THAT(findingsOf(scene, {.view = {.viewAngle = 60.0}}), IsEmpty());
}

/// The view counts as one that shows something: the search would take very long.
TEST(ResolverFindingsTest, SayThatTitlesOfLegendsAreTooLong) {
  for (const std::size_t length : {500U, 501U}) {
    SceneBuilder scene;
    makeGroundWhite(scene);
    auto& legend = scene.drawables().findOrCreate<lum::LegendDrawable>();
    legend.getColorLookupTable();
    legend.getLegendAttributes().setTitle(std::string(length, 'x'));
    const FoundFindings found;
    resolveScene(scene.node());
    EXPECT_EQ(std::ranges::count(found.codes(), "text-changed"), length > 500 ? 1 : 0);
  }
}

TEST(ResolverFindingsTest, AreAtMost1000OfAKind) {
  SceneBuilder scene;
  for (int i = 0; i < 1005; ++i) {
    // Without a colormap.
    scene.drawables().findOrCreate<lum::LegendDrawable>(std::to_string(i));
  }
  const FoundFindings found;
  resolveScene(scene.node());
  EXPECT_EQ(found.codes().size(), 1001U);
}

TEST(ResolverFindingsTest, SayThatNoPictureCanHaveAnImageSoLarge) {
  for (const int width : {16384, 16385}) {
    SceneBuilder scene;
    const std::vector<unsigned char> pixels(static_cast<std::size_t>(width), 1);
    scene.drawables().findOrCreate<lum::ImageDrawable>().getImageAttributes().setPixels(
        makeArray<vtkUnsignedCharArray>("pixels", pixels), width, 1);
    std::vector<Finding> found;
    const FindingCapture capture(found);
    resolveScene(scene.node());
    ASSERT_EQ(found.size(), width > 16384 ? 1U : 0U);
    EXPECT_TRUE(found.empty() || found[0].text.find("too many") != std::string::npos);
  }
}

/// Each of a title and nine numbers: 200 are as many texts as are drawn.
TEST(ResolverFindingsTest, SayThatLegendsHaveTooManyTexts) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  for (int i = 0; i < 201; ++i) {
    auto& legend = scene.drawables().findOrCreate<lum::LegendDrawable>(std::to_string(i));
    legend.getColorLookupTable();
    legend.getLegendAttributes().setNumberOfLabels(9);
    legend.getLegendAttributes().setSize({0.004, 0.5});
    legend.getPositionAttributes().setPosition({0.004 * i, 0, 0}, false);
  }
  const FoundFindings found;
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).decorations.size(), 200U);
  EXPECT_THAT(found.codes(), ElementsAre("colormap-adjusted", "decorations-limited"));
}

lum::LegendDrawable& addLegend(SceneBuilder& scene, const std::string& name) {
  auto& legend = scene.drawables().findOrCreate<lum::LegendDrawable>(name);
  legend.getColorLookupTable().setScalarRange({0, 1});
  return legend;
}

double leftOf(const Decoration& decoration) {
  return std::get<LegendDecoration>(decoration.content).position[0];
}

TEST(ResolverFindingsTest, LeaveOutLegendsThatAreNotSeenTogether) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  auto& shown = addLegend(scene, "shown");
  auto& hidden = addLegend(scene, "hidden");
  hidden.getBaseAttributes().setVisibility(false, false);
  const FoundFindings found;
  SceneResolver whole(scene.node());
  whole.resolve();
  EXPECT_GT(leftOf(whole.resolveHidden(0).decorations.at(0)), 0.1) << "it may be shown later";
  SceneResolver resolver(scene.node());
  resolver.resolve();
  shown.getBaseAttributes().setVisibility(false, false);
  hidden.getBaseAttributes().setVisibility(true, false);
  EXPECT_EQ(resolver.update(0).decorations.size(), 1U);
  EXPECT_EQ(std::ranges::count(found.codes(), "legend-moved"), 0);
}

TEST(ResolverFindingsTest, SayThatNumbersOfLegendsFillTooManyPictures) {
  SceneBuilder scene;
  makeGroundWhite(scene);
  for (int i = 0; i < 13; ++i) {
    auto& legend = addLegend(scene, std::to_string(i));
    legend.getLegendAttributes().setNumberOfLabels(100);
    legend.getAttributes<lum::TextAttributes>().setFontSize(1);
  }
  const FoundFindings found;
  EXPECT_EQ(resolveScene(scene.node()).canvases.at(0).decorations.size(), 12U);
  EXPECT_EQ(std::ranges::count(found.codes(), "decorations-limited"), 1);
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

TEST_F(FontsTest, AreLookedAtOnceForTextsThatAreResolvedTogether) {
  const TemporaryFolder folder;
  const auto font = folder / "DejaVuSans.ttf";
  makeGroundWhite(scene);
  // What no font has is reported once they have been looked at.
  for (const char* const words : {"\u03C3 \U0001F600", "\u03C3"}) {
    scene.collectionIn(scene.drawables())
        .findOrCreate<lum::TextDrawable>()
        .getAnnotationAttributes()
        .setText(words);
  }
  const auto former =
      Findings::getSingleton().setSink([&](const Finding& /*finding*/) { std::filesystem::remove(font); });
  ::setenv("VEMO_FONT_PATH", folder.path().c_str(), 1);
  std::vector<std::string> files;
  for (int i = 0; i < 2; ++i) {
    std::filesystem::copy(DEJAVU, font);
    const ResolvedScene resolved = resolveScene(scene.node());
    for (const Decoration& text : resolved.canvases.at(0).decorations) {
      files.push_back(std::get<TextDecoration>(text.content).style.fontFile);
    }
    EXPECT_FALSE(std::filesystem::exists(font));
  }
  ::unsetenv("VEMO_FONT_PATH");
  Findings::getSingleton().setSink(former);
  EXPECT_EQ(files, std::vector<std::string>(4, font.string()));
}

TEST_F(FontsTest, AreTheFirstHundredFilesAndNoPipes) {
  const TemporaryFolder folder;
  // Fonts of these names would be the first.
  for (const char* const preferred : {"a", "b"}) {
    std::filesystem::create_directory(folder / preferred);
    writeFile(folder / preferred / "DejaVuSans.ttf", "");
  }
  ASSERT_EQ(::mkfifo((folder / "c.ttf").c_str(), S_IRWXU), 0);
  // Opened to read and write, the pipe does not wait for the other side.
  const int pipe = ::open((folder / "c.ttf").c_str(), O_RDWR | O_CLOEXEC);
  for (int i = 100; i < 199; ++i) {
    writeFile(folder / ("d" + std::to_string(i) + ".ttf"), "");
  }
  std::filesystem::copy(DEJAVU, folder / "e.ttf");
  addText(scene, "\u03C3");
  ::setenv("VEMO_FONT_PATH", folder.path().c_str(), 1);
  const std::string hundredth = styleOfText(scene).fontFile;
  writeFile(folder / "d.ttf", "");
  const std::string tooMany = styleOfText(scene).fontFile;
  ::unsetenv("VEMO_FONT_PATH");
  ::close(pipe);
  EXPECT_EQ(hundredth, (folder / "e.ttf").string());
  EXPECT_EQ(tooMany, "");
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
