// Archives that were cut or changed on their way.

#include "SceneFixture.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/SampleGraphs.h"
#include <vemo/import/SceneAudit.h>

#include <algorithm>

namespace vemo {

namespace {

class ArchiveDamageTest : public SceneFixture {
 protected:
  ArchiveDamageTest() {
    const lum::Ptr<lum::SceneNode> scene = makeScene();
    lum::NodeOutputStream stream;
    scene->write(stream);
    const Payload payload(stream);
    _withPayload.text("scene.xml", plainSceneXml("")).text("scene.lum", payload.scene);
    for (std::size_t i = 0; i < payload.data.size(); ++i) {
      _withPayload.text("lum" + std::to_string(i), payload.data[i]);
    }
  }

  static std::string bytesOf(const ArchiveBuilder& archive) {
    const auto bytes = archive.build();
    return {bytes.begin(), bytes.end()};
  }

  static bool isRefused(const SceneAudit& audit) {
    return std::ranges::any_of(audit.getFindings(), [](const Finding& finding) {
      EXPECT_NE(finding.text, "");
      return finding.getSeverity() == Severity::REFUSED;
    });
  }

  const std::string _small = bytesOf(
      ArchiveBuilder()
          .floats("p", {0, 0, 0, 1, 0, 0, 1, 1, 0})
          .ints("t", {3, 0, 1, 2})
          .text("scene.xml", plainSceneXml("<geometry name='g' points='p' polys='t' lineColor='ff0000ff' "
                                           "faceColor='ff0000ff' showFaces='true' visibility='1'/>")));
  ArchiveBuilder _withPayload;
};

TEST_F(ArchiveDamageTest, EveryPrefixIsRefused) {
  const std::string archives[] = {
      _small, bytesOf(_withPayload), bytesOf(ArchiveBuilder(_withPayload).stored()),
      bytesOf(ArchiveBuilder(_archive).text("scene.xml", "").text("scene.xml", plainSceneXml(""))),
      readFile(VEMO_SOURCE_FOLDER "/examples/crystal.zip")};
  for (const std::string& archive : archives) {
    writeFile(archivePath(), archive);
    ASSERT_FALSE(isRefused(SceneAudit(archivePath())));
    for (std::size_t size = archive.size(); size-- > 0;) {
      std::filesystem::resize_file(_folder / "scene.zip", size);
      ASSERT_TRUE(isRefused(SceneAudit(archivePath()))) << size;
    }
  }
}

TEST_F(ArchiveDamageTest, EveryWrongBitIsFoundOrChangesNothing) {
  writeFile(archivePath(), _small);
  const SceneAudit sound(archivePath());
  ASSERT_TRUE(sound.getFindings().empty()) << describe(sound.getFindings().front());
  for (std::size_t bit = 0; bit < 8 * _small.size(); ++bit) {
    std::string wrong = _small;
    wrong[bit / 8] = static_cast<char>(wrong[bit / 8] ^ (1U << bit % 8));
    writeFile(archivePath(), wrong);
    const SceneAudit audit(archivePath());
    if (audit.getFindings().empty()) {
      ASSERT_EQ(lum::firstDifference(*sound.getSceneNode(), *audit.getSceneNode()), "") << bit;
    }
  }
}

}  // namespace

}  // namespace vemo
