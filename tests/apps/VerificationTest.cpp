#include "export/database/Verification.h"
#include "output/ExitCode.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"

#include <functional>
#include <gmock/gmock.h>

namespace vemo {

namespace {

namespace fs = std::filesystem;

/// What was written is another scene than what was to be written, or damaged.
TEST(VerificationTest, RemovesAnOutputThatDiffers) {
  const TemporaryFolder folder;
  const std::string output = folder / "a.sdb";
  const std::string original = folder / "b.sdb";
  const auto scene = makeScene();
  const auto expectRemoved = [&](const std::function<void()>& verify, const std::string& reason) {
    try {
      verify();
      ADD_FAILURE() << "not noticed: " << reason;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.getCode(), ExitCode::CANNOT_WRITE);
      EXPECT_THAT(failure.what(), testing::HasSubstr(reason));
      EXPECT_FALSE(fs::exists(output)) << reason;
    }
  };
  ASSERT_TRUE(isSuccess(writeDatabase(output, *scene)));
  fs::copy_file(output, original);
  verifyScene(output, *scene);
  verifyCopy(output, original);
  EXPECT_TRUE(fs::exists(output));

  surfaceOf(*scene).getColorAttributes()->setOpacity(0.5, false);
  expectRemoved([&] { verifyScene(output, *scene); }, "opacity: 0.5 against 1");
  ASSERT_TRUE(isSuccess(writeDatabase(output, *scene)));
  expectRemoved([&] { verifyCopy(output, original); }, "opacity: 1 against 0.5");
  std::string bytes = readFile(original);
  bytes.back() ^= 1;
  writeFile(output, bytes);
  expectRemoved([&] { verifyCopy(output, original); }, "The index is damaged");
}

}  // namespace

}  // namespace vemo
