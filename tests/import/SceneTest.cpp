#include "SceneFixture.h"
#include "support/ForeignLocale.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/import/items/Scene.h>

#include <vtkPlane.h>

#include <gmock/gmock.h>
#include <string>

namespace vemo {

namespace {

class SceneTest : public SceneFixture {};

TEST_F(SceneTest, HasABackgroundOrFails) {
  EXPECT_EQ(read("")->getBackgroundColor(), (Color{255, 128, 0, 64}));
  EXPECT_EQ(failureOf([] { Scene("s").read(*elementOf("<scene/>"), nullptr); }),
            "InternalError: Can't extract color from such a short string | colorStr.length() >= 8");
}

TEST_F(SceneTest, LogsNumbersTheSameInEveryLocale) {
  std::string children;
  for (int i = 0; i < 1000; ++i) {
    children += "<x/>";
  }
  takeLog();
  {
    const ForeignLocale foreign;
    read(children);
  }
  EXPECT_TRUE(logHas(takeLog(), "AssemblyItem::read: 1000 children found"));
}

TEST_F(SceneTest, KeepsTheWindow) {
  const auto scene = read("<view windowX='1' windowY='2' windowWidth='3' windowHeight='4'/>");
  const Camera& camera = scene->getCamera();
  EXPECT_EQ((std::vector{camera.windowX, camera.windowY, camera.windowWidth, camera.windowHeight}),
            (std::vector{1, 2, 3, 4}));
}

TEST_F(SceneTest, ConvertsAgainIntoTheSameScene) {
  const auto scene = read("<clip/>" + assembly("A", geometry("polys='tri'")));
  convert("");
  SharedBySiblings shared;
  shared.sceneNode = _sceneNode;
  scene->addToCollection(shared, collection(""), 0, "noname");
  scene->addToCollection(shared, collection(""), 0, "noname");
  EXPECT_EQ(_sceneNode->getModelCanvas().getClipPlanesAttributes().getClippingPlanes().getNodeCount(), 2U);
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
