#include "SampleGraphs.h"
#include "SdbFile.h"
#include <vemo/scenegraph/inspect/Compare.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace vemo {

namespace {

using lum::SDBWriter;
using lum::io::FileIoStatus;
namespace fs = std::filesystem;

std::size_t countFiles(const TemporaryFolder& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

mode_t modeOf(const fs::path& path) {
  struct stat status {};
  stat(path.c_str(), &status);
  return status.st_mode & 0777;
}

TEST(SdbWriter, LeavesTheOldFileUntilItCloses) {
  const TemporaryFolder folder;
  const fs::path path = folder / "a.sdb";
  writeFile(path, "old");
  int number = -1;
  {
    SDBWriter writer;
    ASSERT_EQ(writer.open(wide(path), false, false), FileIoStatus::Success);
    EXPECT_EQ(writer.addRecord("", "", "", *makeScene(), number), FileIoStatus::Success);
    EXPECT_EQ(readFile(path), "old");
  }
  EXPECT_EQ(readFile(path), "old");
  EXPECT_EQ(countFiles(folder), 1U);
  ASSERT_EQ(writeDatabase(path, *makeScene()), FileIoStatus::Success);
  EXPECT_NE(readFile(path), "old");
  EXPECT_EQ(countFiles(folder), 1U);
}

TEST(SdbWriter, KeepsPermissionsAndLinks) {
  const TemporaryFolder folder;
  const mode_t mask = umask(022);
  ASSERT_EQ(writeDatabase(folder / "new.sdb", *makeScene()), FileIoStatus::Success);
  umask(mask);
  EXPECT_EQ(modeOf(folder / "new.sdb"), 0644U);
  writeFile(folder / "private.sdb", "");
  fs::permissions(folder / "private.sdb", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("private.sdb", folder / "link.sdb");
  fs::create_symlink("later.sdb", folder / "dangling.sdb");
  ASSERT_EQ(writeDatabase(folder / "link.sdb", *makeScene()), FileIoStatus::Success);
  ASSERT_EQ(writeDatabase(folder / "dangling.sdb", *makeScene()), FileIoStatus::Success);
  EXPECT_EQ(modeOf(folder / "private.sdb"), 0600U);
  EXPECT_TRUE(fs::is_symlink(folder / "link.sdb"));
  EXPECT_EQ(readFile(folder / "private.sdb"), readFile(folder / "new.sdb"));
  EXPECT_EQ(readFile(folder / "later.sdb"), readFile(folder / "new.sdb"));
}

TEST(SdbWriter, RefusesTargetsThatItMustNotReplace) {
  const TemporaryFolder folder;
  writeFile(folder / "there.sdb", "old");
  SDBWriter writer;
  EXPECT_EQ(writer.open(L"/dev/null", false, false), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(wide(folder.path()), false, false), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(wide(folder / "no/a.sdb"), false, false), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(L"", false, false), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(wide(folder / "there.sdb"), false, true), FileIoStatus::WriteError);
  EXPECT_EQ(writer.open(wide(folder / "there.sdb"), true, false), FileIoStatus::UnsupportedFormat);
  int number = -1;
  EXPECT_EQ(writer.addRecord("", "", "", *makeScene(), number), FileIoStatus::WriteError);
  EXPECT_EQ(writer.close(), FileIoStatus::WriteError);
  // One that comes to be there while we write.
  ASSERT_EQ(writer.open(wide(folder / "new.sdb"), false, true), FileIoStatus::Success);
  writeFile(folder / "new.sdb", "other");
  EXPECT_EQ(writer.close(), FileIoStatus::WriteError);
  EXPECT_EQ(readFile(folder / "new.sdb"), "other");
  EXPECT_EQ(readFile(folder / "there.sdb"), "old");
  EXPECT_EQ(countFiles(folder), 2U);
}

TEST(SdbWriter, DiscardsWhatDidNotFitOnTheDisk) {
  const TemporaryFolder folder;
  const auto scene = makeScene();
  ASSERT_EQ(writeDatabase(folder / "a.sdb", *scene), FileIoStatus::Success);
  const std::string whole = readFile(folder / "a.sdb");
  rlimit unlimited{};
  getrlimit(RLIMIT_FSIZE, &unlimited);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  for (const std::size_t size : {std::size_t{0}, std::size_t{100}, whole.size() / 2, whole.size() - 1}) {
    const rlimit limit{size, unlimited.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const FileIoStatus status = writeDatabase(folder / "a.sdb", *scene);
    setrlimit(RLIMIT_FSIZE, &unlimited);
    EXPECT_EQ(status, FileIoStatus::WriteError) << size;
    EXPECT_EQ(readFile(folder / "a.sdb"), whole);
    EXPECT_EQ(countFiles(folder), 1U);
  }
  std::signal(SIGXFSZ, handler);
}

}  // namespace

}  // namespace vemo
