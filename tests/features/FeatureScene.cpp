#include "features/FeatureScene.h"

#include "support/ArchiveBuilder.h"
#include "support/Files.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace vemo {

namespace {

const std::string VIEW = "<view parallelScale='1'><position z='5'/></view>";

constexpr int CELLS_A_SIDE = 8;
constexpr int POINTS_A_SIDE = CELLS_A_SIDE + 1;

/// Values that grow to the right and, a little, upwards.
std::vector<float> valuesOver(int aSide, int components) {
  std::vector<float> values;
  for (int i = 0; i < aSide * aSide; ++i) {
    const int column = i % aSide;
    const int row = i / aSide;
    values.push_back(0.1F + 1.4F * static_cast<float>(column) + 0.05F * static_cast<float>(row));
    values.resize(values.size() + static_cast<std::size_t>(components) - 1, 2.0F);
  }
  return values;
}

void addHill(ArchiveBuilder& archive) {
  constexpr float HALF = 0.9F;
  std::vector<float> points;
  std::vector<int> faces;
  for (int row = 0; row < POINTS_A_SIDE; ++row) {
    for (int column = 0; column < POINTS_A_SIDE; ++column) {
      const float x = HALF * (2.0F * static_cast<float>(column) / CELLS_A_SIDE - 1.0F);
      const float y = HALF * (2.0F * static_cast<float>(row) / CELLS_A_SIDE - 1.0F);
      points.insert(points.end(), {x, y, 0.8F * (1.0F - x * x) * (1.0F - y * y)});
      if (row < CELLS_A_SIDE && column < CELLS_A_SIDE) {
        const int corner = row * POINTS_A_SIDE + column;
        faces.insert(faces.end(),
                     {4, corner, corner + 1, corner + POINTS_A_SIDE + 1, corner + POINTS_A_SIDE});
      }
    }
  }
  archive.floats("hill", points)
      .ints("hillFaces", faces)
      .floats("byPoint", valuesOver(POINTS_A_SIDE, 1))
      .floats("byCell", valuesOver(CELLS_A_SIDE, 1))
      .floats("pairs", valuesOver(CELLS_A_SIDE, 2))
      .floats("triples", valuesOver(CELLS_A_SIDE, 3));
}

ArchiveBuilder makeArchive() {
  ArchiveBuilder archive;
  archive
      .floats("flag", {0, 0, 0,    0.6F, 0,    0,    0.6F, 0.2F, 0,    0.2F, 0.2F,
                       0, 0, 0.2F, 0,    0.2F, 0.6F, 0.2F, 0,    0.6F, 0.2F})
      .ints("flagFaces", {5, 0, 1, 2, 3, 4, 4, 4, 3, 5, 6})
      .floats("strips",
              {-0.8F, -0.5F, 0, -0.3F, -0.5F, 0, -0.3F, 0.5F, 0, -0.8F, 0.5F,  0,     -0.3F, -0.5F, 0,
               0.2F,  -0.5F, 0, 0.2F,  0.5F,  0, -0.3F, 0.5F, 0, 0.7F,  -0.5F, -0.5F, 0.7F,  0.5F,  -0.5F})
      .ints("stripFaces", {4, 0, 1, 2, 3, 4, 4, 5, 6, 7})
      .ints("stripStrips", {4, 5, 8, 6, 9})
      .floats("four", {-0.6F, 0, 0, -0.2F, 0, 0, 0.2F, 0, 0, 0.6F, 0, 0})
      .ints("fourVerts", {3, 0, 1, 2, 1, 3})
      .floats("fourSizes", {1, 10, 100, NAN});
  for (int components = 1; components <= 4; ++components) {
    archive.bytes("pixels" + std::to_string(components), FeatureScene::pixels(components));
  }
  addHill(archive);
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

Picture FeatureScene::draw() const {
  const Picture picture = renderPicture(*_node, {SIZE, SIZE});
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
