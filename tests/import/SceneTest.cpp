#include "SceneFixture.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/import/items/Scene.h>

#include <vtkPlane.h>

#include <gmock/gmock.h>
#include <locale>
#include <string>

namespace vemo {

namespace {

using Vector3 = Vector<3, double>;
using ProjectionMode = lum::CameraAttributes::ProjectionMode;

class SceneTest : public SceneFixture {
 protected:
  lum::SceneCanvas& model() { return _sceneNode->getModelCanvas(); }
};

TEST_F(SceneTest, ReadsItsOwnElementsOnceAndThoseOfItsAssembliesNever) {
  const std::string light = "<light color='ffffffff'/>";
  convert(light + assembly("A", geometry("polys='tri'") + light + "<clip/><gradient/>"));
  EXPECT_EQ(model().getLightingAttributes().getLights().getNodeCount(), 1U);
  EXPECT_FALSE(model().getClipPlanesAttributes().hasClippingPlanes());
  EXPECT_EQ(collection("A").getNodeCount(), 1U);
}

TEST_F(SceneTest, HasABackgroundOrFails) {
  EXPECT_EQ(read("")->getBackgroundColor(), (Color{255, 128, 0, 64}));
  EXPECT_EQ(failureOf([] { Scene("s").read(*elementOf("<scene/>"), nullptr); }),
            "InternalError: Can't extract color from such a short string | colorStr.length() >= 8");
}

TEST_F(SceneTest, WithoutAViewKeepsTheDefaultCamera) {
  convert("");
  const auto* camera = model().hasCameraAttributes();
  ASSERT_TRUE(camera);
  // By these a renderer knows that it has to frame the scene.
  const lum::Ptr<lum::CameraAttributes> fresh(
      new lum::CameraAttributes(lum::ClassNameNodeInitializer(lum::CameraAttributes::getClassName())));
  EXPECT_EQ(camera->getPosition(), fresh->getPosition());
  EXPECT_EQ(camera->getFocalPoint(), fresh->getFocalPoint());
  EXPECT_EQ(camera->getViewUp(), fresh->getViewUp());
  EXPECT_EQ(camera->getProjectionMode(), fresh->getProjectionMode());
  EXPECT_EQ(camera->getParallelScale(), fresh->getParallelScale());
  EXPECT_FALSE(model().findAttributes<lum::LightingAttributes>());
  EXPECT_FALSE(model().findAttributes<lum::ClipPlanesAttributes>());
}

TEST_F(SceneTest, LogsNumbersTheSameInEveryLocale) {
  struct Grouped : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  std::string children;
  for (int i = 0; i < 1000; ++i) {
    children += "<x/>";
  }
  takeLog();
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Grouped));
  read(children);
  std::locale::global(before);
  EXPECT_TRUE(logHas(takeLog(), "AssemblyItem::read: 1000 children found"));
}

TEST_F(SceneTest, ConvertsItsViews) {
  convert("<view perspective='true' parallelScale='3'><position x='1'/><up y='2' z='3'/></view>");
  EXPECT_EQ(model().getCameraAttributes().getPosition(), (Vector3{1, 0, 0}));
  EXPECT_EQ(model().getCameraAttributes().getViewUp(), (Vector3{0, 2, 3}));
  EXPECT_FALSE(model().getCameraAttributes().getParallelScale()) << "is for parallel views only";

  convert(
      "<view perspective='true'><position x='1'/><focalPt y='4'/></view>"
      "<view parallelScale='2.5' windowWidth='640'><up x='1'/></view>");
  const auto& camera = model().getCameraAttributes();
  EXPECT_EQ(camera.getPosition(), (Vector3{1, 0, 0}))
      << "a second view keeps the vectors that it does not have";
  EXPECT_EQ(camera.getFocalPoint(), (Vector3{0, 4, 0}));
  EXPECT_EQ(camera.getProjectionMode(), ProjectionMode::PARALLEL);
  EXPECT_EQ(camera.getParallelScale(), 2.5);
}

TEST_F(SceneTest, KeepsTheWindow) {
  const auto scene = read("<view windowX='1' windowY='2' windowWidth='3' windowHeight='4'/>");
  const Camera& camera = scene->getCamera();
  EXPECT_EQ((std::vector{camera.windowX, camera.windowY, camera.windowWidth, camera.windowHeight}),
            (std::vector{1, 2, 3, 4}));
}

TEST_F(SceneTest, LightsAndPlanesThatStateNothingHaveTheirDefaults) {
  convert("<light color='ff80000a'/><clip/>");
  const auto& light = dynamic_cast<lum::Light&>(model().getLightingAttributes().getLights().getNode(0));
  EXPECT_EQ(light.getIntensity(), 0);
  EXPECT_EQ(light.getAngles(), (Vector<2, double>{0, 0}));
  const auto& plane =
      dynamic_cast<lum::Plane&>(model().getClipPlanesAttributes().getClippingPlanes().getNode(0));
  EXPECT_EQ(plane.getOrigin(), (Vector3{}));
  EXPECT_EQ(plane.getNormal(), (Vector3{0, 0, 1}));
}

TEST_F(SceneTest, ConvertsAgainIntoTheSameScene) {
  const auto scene = read("<clip/>" + assembly("A", geometry("polys='tri'")));
  convert("");
  SharedBySiblings shared;
  shared.sceneNode = _sceneNode;
  scene->addToCollection(shared, collection(""), 0, "noname");
  scene->addToCollection(shared, collection(""), 0, "noname");
  EXPECT_EQ(model().getClipPlanesAttributes().getClippingPlanes().getNodeCount(), 2U);
  EXPECT_EQ(collection("").getNodeCount(), 1U);
}

TEST_F(SceneTest, APlaneForMappersFollowsItsElement) {
  ClippingPlane plane;
  vtkPlane* const made = plane.getPlane();
  plane.read(*elementOf("<clip><origin y='2'/></clip>"), nullptr);
  EXPECT_EQ(plane.getPlane(), made);
  EXPECT_EQ(made->GetOrigin()[1], 2.0);
  EXPECT_EQ(made->GetNormal()[2], 1.0);
}

TEST_F(SceneTest, TheLastGradientWins) {
  for (const char* mode : {"SOLID", "radial", ""}) {
    const auto scene = read(
        "<gradient topColor='00000000' bottomColor='00000000' mode='RADIAL'/>"
        "<gradient topColor='01020304' bottomColor='05060708' mode='" +
        std::string(mode) + "'/>");
    const Gradient& gradient = *scene->getGradient();
    EXPECT_EQ(gradient.getMode(), lum::BackgroundColorModes::SOLID) << mode;
    EXPECT_EQ(gradient.getTopColor(), (Color{1, 2, 3, 4}));
  }
  EXPECT_EQ(read("")->getGradient(), nullptr);
}

TEST_F(SceneTest, AGradientIsNoDrawable) {
  convert("");
  SharedBySiblings shared;
  Gradient("background").addToCollection(shared, collection(""), 1, "");
  EXPECT_EQ(collection("").getNodeCount(), 0U);
  EXPECT_TRUE(logHas(takeLog(), "***** Gradient::addToCollection not implemented *****"));
}

TEST_F(SceneTest, CarriesTheSceneGraphOfTheArchive) {
  const std::string xml = sceneXml("");
  const auto payloadOf = [&](const ArchiveBuilder& archive) {
    ArchiveBuilder(archive).text("scene.xml", xml).write(_folder / "scene.zip");
    SceneFileReader reader{ZipFileReader(archivePath())};
    std::unique_ptr<Scene> scene;
    reader.read(scene);
    const auto file = scene->getLUMSceneFile();
    std::string texts(reinterpret_cast<const char*>(file.data), static_cast<std::size_t>(file.count));
    for (const auto& data : scene->getLUMDataFiles()) {
      const ArrayOwner<unsigned char> block(data);
      texts.append(" ").append(reinterpret_cast<const char*>(block.data()), 1);
    }
    return texts;
  };
  auto archive = ArchiveBuilder().text("lum_b", "B").text("Lum", "x").text("lum_a", "A").text("lum", "0");
  EXPECT_EQ(payloadOf(archive), "");
  EXPECT_EQ(payloadOf(archive.text("scene.lum", "scene")), "scene 0 A B");
}

}  // namespace

}  // namespace vemo
