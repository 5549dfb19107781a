#include "ProgramRun.h"
#include "SampleArchive.h"
#include "support/OrdinaryUser.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vemo {

namespace {

namespace fs = std::filesystem;

/// Starts commands that print to a pipe. Nobody reads it, so that they hang.
class HangingCommandTest : public ProgramTest {
 protected:
  HangingCommandTest() {
    makeArchive(makeDescription("heat")).write(_folder / "scene.zip");
    EXPECT_EQ(mkfifo(_pipe.c_str(), 0600), 0);
    // Opened to read and write, the pipe does not wait for the other side.
    _descriptor = open(_pipe.c_str(), O_RDWR | O_CLOEXEC);
  }
  ~HangingCommandTest() override { close(_descriptor); }

  ProgramRun start(const std::vector<std::string>& arguments) const {
    return {arguments, _folder.path(), _temporary.path(), _pipe};
  }

  /// Of a scene whose database is more than a pipe holds.
  ProgramRun startConversion() const {
    makeArchive(makeDescription("heat"), 50'000).write(_folder / "large.zip");
    return start({"convert", "large.zip", "-"});
  }

  void writeScene(const char* name, const std::string& element, int count) const {
    std::string description = makeDescription("heat");
    for (int i = 0; i < count; ++i) {
      description.insert(description.find("<geometry"), element);
    }
    makeArchive(description).write(_folder / name);
  }

  /// Waits until the pipe holds what was printed.
  void waitUntilItHangs() const {
    waitUntil([this] {
      int size = 0;
      ioctl(_descriptor, FIONREAD, &size);
      return size > 0;
    });
  }

  template <class Condition>
  static void waitUntil(const Condition& isMet) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!isMet() && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(isMet());
  }

  /// Nobody can read it any more.
  void closePipe() { close(std::exchange(_descriptor, -1)); }

  auto countTemporaryFolders() const { return countFiles(_temporary.path()); }

  /// It hangs, and a signal ends it.
  void expectToLeaveNothing(const ProgramRun& run, int signal) const {
    waitUntilItHangs();
    EXPECT_EQ(countTemporaryFolders(), 1);
    run.sendSignal(signal);
    EXPECT_EQ(run.finish().exitCode, -signal);
    expectNoTemporaryFiles();
  }

 private:
  fs::path _pipe = _folder / "pipe";
  int _descriptor = -1;
};

TEST_F(HangingCommandTest, LeavesNothingBehindWhenItIsTerminated) {
  expectToLeaveNothing(startConversion(), SIGTERM);
}

TEST_F(HangingCommandTest, EndsWithoutAWordWhenNobodyReadsItsResult) {
  const ProgramRun run = startConversion();
  waitUntilItHangs();
  closePipe();
  const ProgramResult result = run.finish();
  EXPECT_EQ(result.exitCode, 6);
  EXPECT_EQ(result.err, "");
  expectNoTemporaryFiles();
}

TEST_F(HangingCommandTest, WaitsForInputThatIsNotThereYet) {
  const fs::path input = _folder / ".in";
  EXPECT_EQ(mkfifo(input.c_str(), 0600), 0);
  const int writer = open(input.c_str(), O_RDWR | O_CLOEXEC);
  const ProgramRun run({"info", "-"}, _folder.path(), _temporary.path());
  waitUntil([this] { return countTemporaryFolders() == 1; });
  const std::string scene = readFile(_folder / "scene.zip");
  EXPECT_EQ(write(writer, scene.data(), scene.size()), std::ssize(scene));
  waitUntil([writer] {
    int left = 0;
    return ioctl(writer, FIONREAD, &left) == 0 && left == 0;
  });
  close(writer);
  EXPECT_EQ(run.finish().exitCode, 0);
}

TEST_F(HangingCommandTest, GoesOnAfterSignalsThatItsParentIgnores) {
  std::signal(SIGHUP, SIG_IGN);
  const ProgramRun run = startConversion();
  std::signal(SIGHUP, SIG_DFL);
  waitUntilItHangs();
  run.sendSignal(SIGHUP);
  closePipe();
  EXPECT_EQ(run.finish().exitCode, 6) << "it ends because it cannot write";
}

TEST_F(HangingCommandTest, LeavesNoConvertedScenesBehindWhenItsTimeIsUp) {
  const std::string light = "<light intensity='1' color='FFFFFFFF'/>";
  writeScene("one.zip", light, 1);
  writeScene("many.zip", light, 3000);
  expectToLeaveNothing(start({"diff", "one.zip", "many.zip", "--json"}), SIGXCPU);
}

TEST_F(HangingCommandTest, RemovesTheFolderOfAKilledProcessButNoOthers) {
  fs::create_directory(_temporary / "vemoscene-files-of a user");
  fs::create_directory(_temporary / "vemoscene-files-backup");
  fs::permissions(_temporary / "vemoscene-files-backup", fs::perms::owner_all);
  // Folders in it get the bit, too.
  fs::permissions(_temporary.path(), fs::perms::set_gid, fs::perm_options::add);
  std::string machine = readFile("/proc/sys/kernel/random/boot_id");
  machine.pop_back();
  const fs::path others = _temporary / "vemoscene-files-others";
  fs::create_directory(others);
  writeFile(others / (".made-by-vemoscene-" + machine), "");
  fs::create_directory(_temporary / "vemoscene-files-remote");
  writeFile(_temporary / "vemoscene-files-remote/.made-by-vemoscene-another", "");
  // Only root can give it to somebody else.
  const bool isOfOther = chown(others.c_str(), AsOrdinaryUser::NOBODY, AsOrdinaryUser::NOBODY) == 0;
  const int kept = isOfOther ? 4 : 3;
  const ProgramRun hanging = startConversion();
  waitUntilItHangs();
  run({"convert", "scene.zip", "-"});
  EXPECT_EQ(countTemporaryFolders(), kept + 1);
  hanging.sendSignal(SIGKILL);
  EXPECT_EQ(hanging.finish().exitCode, -SIGKILL);
  EXPECT_EQ(countTemporaryFolders(), kept + 1);
  run({"convert", "scene.zip", "-"});
  EXPECT_EQ(countTemporaryFolders(), kept);
}

TEST_F(HangingCommandTest, LeavesNoEmptyFolderBehindWhenItIsTerminated) {
  writeScene("long.zip", "<light intensity='1' color='FFFFFFFF'/>", 20000);
  const ProgramRun run = start({"convert", "long.zip", "-d", "new"});
  waitUntil([this] { return fs::exists(_folder / "new"); });
  run.sendSignal(SIGTERM);
  EXPECT_EQ(run.finish().exitCode, -SIGTERM);
  EXPECT_FALSE(fs::exists(_folder / "new"));
}

TEST_F(HangingCommandTest, ATerminatedConversionKeepsItsInput) {
  writeScene("scene.tmp", "<vectors name='a field'/>", 1000);
  const ProgramRun run = start({"convert", "scene.tmp", "terminated.sdb", "--ledger", "pipe"});
  waitUntilItHangs();
  run.sendSignal(SIGTERM);
  EXPECT_EQ(run.finish().exitCode, -SIGTERM);
  EXPECT_TRUE(fs::exists(_folder / "scene.tmp"));
}

}  // namespace

}  // namespace vemo
