#include "features/FeatureScene.h"

#include "support/ArchiveBuilder.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace vemo {

namespace {

const std::string VIEW = "<view parallelScale='1'><position z='5'/></view>";

ArchiveBuilder makeArchive() {
  ArchiveBuilder archive;
  std::ifstream entries(testData("features.txt"));
  for (std::string line; std::getline(entries, line);) {
    archive.add(line);
  }
  for (int components = 1; components <= 4; ++components) {
    archive.bytes("pixels" + std::to_string(components), FeatureScene::pixels(components));
  }
  return archive;
}

/// Opens a scene file as hosts do, through the handler.
lum::Ptr<lum::SceneNode> load(const std::wstring& path) {
  lum::Ptr<lum::SceneNode> node;
  std::ostringstream messages;
  SceneFormatHandler::loadVemoScene(
      path,
      [&](const std::wstring& database) {
        lum::SDBReader reader(database);
        node = lum::Ptr<lum::SceneNode>(reader.readNode(0));
        return true;
      },
      messages);
  EXPECT_EQ(messages.str(), "");
  return node;
}

}  // namespace

std::vector<unsigned char> FeatureScene::pixels(int components) {
  constexpr unsigned char PIXELS[12][4] = {{255, 0, 0, 255},     {0, 255, 0, 255},     {0, 0, 255, 255},
                                           {255, 255, 0, 255},   {0, 0, 0, 255},       {60, 60, 60, 255},
                                           {120, 120, 120, 255}, {180, 180, 180, 255}, {255, 0, 255, 128},
                                           {255, 0, 255, 128},   {0, 255, 255, 128},   {0, 255, 255, 128}};
  const bool hasAlpha = components % 2 == 0;
  std::vector<unsigned char> bytes;
  for (const auto& pixel : PIXELS) {
    for (int i = 0; i < components; ++i) {
      bytes.push_back(pixel[hasAlpha && i == components - 1 ? 3 : i]);
    }
  }
  return bytes;
}

FeatureScene::FeatureScene(const std::string& children, const std::string& background) {
  const auto path = _folder / "scene.zip";
  makeArchive().text("scene.xml", sceneXml(VIEW + children, "background='" + background + "'")).write(path);
  SceneFileReader reader{ZipFileReader(wide(path))};
  reader.read(_items);
  for (const Finding& finding : reader.getFindings()) {
    // The scene's own view after this one; triples, whose lengths are shown; entries
    // that only other scenes use.
    static const std::set<FindingCode> EXPECTED = {FindingCode::ELEMENT_REPLACED,
                                                   FindingCode::ARRAY_MAGNITUDE, FindingCode::ENTRY_UNUSED};
    EXPECT_TRUE(EXPECTED.contains(finding.code) || finding.getSeverity() == Severity::NOTE)
        << describe(finding);
  }
  _node = load(wide(path));
}

Picture FeatureScene::draw(int width) const {
  const Picture picture = renderPicture(*_node, {width, SIZE});
  keepPicture(picture, "scene");
  return picture;
}

void keepPicture(const Picture& picture, const std::string& suffix) {
  if (const char* const folder = std::getenv("VEMO_TEST_PICTURES")) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test.test_suite_name()) + "-" + test.name() + "-" + suffix + ".png";
    std::ranges::replace(name, '/', '-');
    picture.writePng(std::filesystem::path(folder) / name);
  }
}

}  // namespace vemo
