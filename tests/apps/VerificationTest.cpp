#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace vemo {

namespace {

namespace fs = std::filesystem;

class VerificationTest : public testing::Test {
 protected:
  VerificationTest() { EXPECT_TRUE(isSuccess(writeDatabase(_database, *_scene))); }

  template <class Verify>
  void expectRefusal(const std::string& reason, Verify&& verify) {
    try {
      verify();
      ADD_FAILURE() << "not noticed: " << reason;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.getCode(), ExitCode::CANNOT_WRITE);
      EXPECT_THAT(failure.what(),
                  testing::AllOf(testing::HasSubstr("\"output\""), testing::HasSubstr(reason)));
    }
  }

  const TemporaryFolder _folder;
  const std::string _database = _folder / "a.sdb";
  const std::wstring _path = wide(_database);
  const Ptr<lum::SceneNode> _scene = makeScene();
};

TEST_F(VerificationTest, RefusesWhatDiffersOrIsDamaged) {
  const std::string original = _folder / "b.sdb";
  fs::copy_file(_database, original);
  EXPECT_EQ(verifyScene(_path, *_scene, "output").records, 1U);
  EXPECT_EQ(verifyCopy(_path, original, "output").records, 1U);

  surfaceOf(*_scene).getColorAttributes()->setOpacity(0.5, false);
  expectRefusal("opacity: 0.5 against 1", [&] { verifyScene(_path, *_scene, "output"); });
  ASSERT_TRUE(isSuccess(writeDatabase(_database, *_scene)));
  expectRefusal("opacity: 1 against 0.5", [&] { verifyCopy(_path, original, "output"); });
  std::string bytes = readFile(original);
  bytes.back() ^= 1;
  writeFile(_database, bytes);
  expectRefusal("The index is damaged", [&] { verifyCopy(_path, original, "output"); });
}

}  // namespace

}  // namespace vemo
