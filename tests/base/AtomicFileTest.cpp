#include "base/AtomicFile.h"
#include "support/Files.h"
#include "support/OrdinaryUser.h"
#include "support/TemporaryFolder.h"

#include <bit>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <map>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace {

/// Calls that fail as on other file systems, by name, with their error numbers.
std::map<std::string_view, int>& failingCalls() {
  static std::map<std::string_view, int> calls;
  return calls;
}

template <class... Arguments>
int call(std::string_view name, long number, Arguments... arguments) {
  const auto failing = failingCalls().find(name);
  if (failing != failingCalls().end()) {
    errno = failing->second;
    return -1;
  }
  return static_cast<int>(syscall(number, arguments...));
}

}  // namespace

#pragma GCC visibility push(default)
// In place of the system's, also for the library.
extern "C" {
int fsync(int file) {
  struct stat status {};
  fstat(file, &status);
  return call(S_ISDIR(status.st_mode) ? "fsync of a folder" : "fsync", SYS_fsync, file);
}
int fchmod(int file, mode_t mode) noexcept {
  return call("fchmod", SYS_fchmod, file, mode);
}
int access(const char* path, int mode) noexcept {
  return call("access", SYS_faccessat, AT_FDCWD, path, mode);
}
}
#pragma GCC visibility pop

namespace vemo {

namespace {

namespace fs = std::filesystem;

class WithFailing {
 public:
  explicit WithFailing(std::map<std::string_view, int> calls) { failingCalls() = std::move(calls); }
  WithFailing(const WithFailing&) = delete;
  WithFailing& operator=(const WithFailing&) = delete;
  ~WithFailing() { failingCalls().clear(); }
};

/// As without /proc: what has no name could not be named.
struct WithNamedFiles : WithFailing {
  WithNamedFiles() : WithFailing({{"access", ENOENT}}) {}
};

/// A folder with a file, both of an ordinary user.
class AtomicFileTest : public testing::Test {
 protected:
  AtomicFileTest() {
    writeFile(_file, "former");
    if (getuid() == 0) {
      for (const fs::path& path : {_folder.path(), _file}) {
        EXPECT_EQ(chown(path.c_str(), AsOrdinaryUser::NOBODY, AsOrdinaryUser::NOBODY), 0);
      }
    }
  }

  /// Writes the file; returns why that failed.
  std::string write() const { return write(_file); }
  static std::string write(const fs::path& path) {
    try {
      OS::AtomicFile file(path);
      file.write("new", 3, 0);
      file.commit();
      return {};
    } catch (const OS::FileWriteError& error) {
      return error.what();
    }
  }

  TemporaryFolder _folder;
  fs::path _file = _folder / "file";
};

TEST_F(AtomicFileTest, RefusesWhatItsUserMayNotWrite) {
  const AsOrdinaryUser user;
  chmod(_file.c_str(), 0444);
  EXPECT_EQ(write(), "Cannot write " + _file.string() + ": Permission denied");
  chmod(_file.c_str(), 0600);
  chmod(_folder.path().c_str(), 0500);
  EXPECT_EQ(write(), "Cannot write " + _file.string() +
                         ": it can only be replaced as a whole, and no file can be created in its folder: "
                         "Permission denied");
  chmod(_folder.path().c_str(), 0700);
  EXPECT_EQ(readFile(_file), "former");
}

TEST_F(AtomicFileTest, KeepsOwnerGroupAndPermissions) {
  chmod(_file.c_str(), 0640);
  struct stat before {};
  struct stat after {};
  stat(_file.c_str(), &before);
  EXPECT_EQ(write(), "");
  stat(_file.c_str(), &after);
  EXPECT_NE(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
  EXPECT_EQ(after.st_mode, before.st_mode);
  if (getuid() == 0) {
    EXPECT_EQ(chown(_file.c_str(), 0, 0) | chmod(_file.c_str(), 0666), 0);
    const AsOrdinaryUser user;
    EXPECT_THAT(write(), testing::HasSubstr("would get another owner"));
    EXPECT_EQ(countFiles(_folder.path()), 1);
  }
}

TEST_F(AtomicFileTest, NeedsNoCallThatTheFileSystemLacks) {
  chmod(_file.c_str(), 0600);
  {
    const WithFailing fixed({{"fsync", EINVAL}, {"fsync of a folder", EINVAL}, {"fchmod", EPERM}});
    EXPECT_EQ(write(), "") << "the modes of all files are the same";
    chmod(_file.c_str(), 0640);
    EXPECT_THAT(write(), testing::HasSubstr("Operation not permitted"));
  }
  const WithFailing broken({{"fsync", EIO}});
  EXPECT_EQ(write(), "Cannot write " + _file.string() + ": Input/output error");
  const WithFailing brokenLater({{"fsync of a folder", EIO}});
  EXPECT_THAT(write(), testing::HasSubstr("in place, but may not be on the disk: Input/output error"));
}

/// An access list as an extended attribute: the owner and user 1001 may read and write, the group
/// and others nothing.
std::string privateAccessList() {
  constexpr std::uint32_t NOBODY_ELSE = 0xffffffff;
  std::string bytes;
  const auto add = [&bytes](std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i) {
      bytes += std::bit_cast<char>(static_cast<std::uint8_t>(number >> (8 * i)));
    }
  };
  add(2, 4);  // the version
  struct {
    std::uint32_t tag, permissions, id;
  } const entries[] = {{0x01, 6, NOBODY_ELSE},
                       {0x02, 6, 1001},
                       {0x04, 0, NOBODY_ELSE},
                       {0x10, 6, NOBODY_ELSE},
                       {0x20, 0, NOBODY_ELSE}};
  for (const auto& [tag, permissions, id] : entries) {
    add(tag, 2);
    add(permissions, 2);
    add(id, 4);
  }
  return bytes;
}

/// Returns 0, or an error number.
int setAttribute(const fs::path& path, const char* name, const std::string& value) {
  return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0 ? 0 : errno;
}

/// Empty without one.
std::string accessListOf(const fs::path& path) {
  std::string value(1024, '\0');
  const ssize_t size = getxattr(path.c_str(), "system.posix_acl_access", value.data(), value.size());
  value.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  return value;
}

TEST_F(AtomicFileTest, KeepsTheAccessListAndTakesNoneFromTheFolder) {
  const std::string list = privateAccessList();
  const auto modeOf = [](const fs::path& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 0777;
  };
  const int error = setAttribute(_file, "system.posix_acl_access", list);
  if (error == ENOTSUP) {
    GTEST_SKIP() << "This file system has no access lists";
  }
  ASSERT_EQ(error, 0);
  EXPECT_EQ(write(), "");
  EXPECT_EQ(accessListOf(_file), list);
  EXPECT_EQ(modeOf(_file), 0660U);

  const fs::path plain = _folder / "plain";
  writeFile(plain, "former");
  chmod(plain.c_str(), 0640);
  ASSERT_EQ(setAttribute(_folder.path(), "system.posix_acl_default", list), 0);
  EXPECT_EQ(write(plain), "");
  EXPECT_EQ(readFile(plain), "new");
  EXPECT_EQ(accessListOf(plain), "");
  EXPECT_EQ(modeOf(plain), 0640U);
  EXPECT_EQ(write(_folder / "later"), "");
  EXPECT_NE(accessListOf(_folder / "later"), "") << "as any new file";
}

TEST_F(AtomicFileTest, WritesWhatLinksName) {
  fs::create_symlink("file", _folder / "link");
  fs::create_symlink("later", _folder / "dangling");
  const mode_t mask = umask(022);
  for (const auto& [link, target] : {std::pair("link", "file"), {"dangling", "later"}}) {
    EXPECT_EQ(write(_folder / link), "");
    EXPECT_TRUE(fs::is_symlink(_folder / link));
    EXPECT_EQ(readFile(_folder / target), "new");
  }
  umask(mask);
  struct stat status {};
  stat((_folder / "later").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0644U) << "as of any new file";
  const fs::path circle = _folder / "circle";
  fs::create_symlink("circle", circle);
  EXPECT_EQ(write(circle), "Cannot write " + circle.string() + ": " + std::generic_category().message(ELOOP));
}

TEST_F(AtomicFileTest, RefusesWhatHasNoName) {
  const int file = open(_file.c_str(), O_RDONLY | O_CLOEXEC);
  fs::remove(_file);
  EXPECT_THAT(write("/proc/self/fd/" + std::to_string(file)), testing::HasSubstr("has no name"));
  EXPECT_EQ(countFiles(_folder.path()), 0);
  close(file);
}

/// Few bytes fail when they leave the buffer, many at once.
TEST(SequentialFileTest, ReportsWhatADeviceDoesNotTake) {
  for (const std::size_t size : {std::size_t{3}, std::size_t{1} << 20U}) {
    EXPECT_THROW(OS::writeAtomically("/dev/full", std::vector<std::uint8_t>(size)), OS::FileWriteError)
        << size;
  }
}

TEST_F(AtomicFileTest, RemovesOnlyItsOwnTemporaryFile) {
  const WithNamedFiles named;
  auto inFolder = std::make_optional<WorkingFolder>(_folder.path());
  auto file = std::make_unique<OS::AtomicFile>("relative");
  inFolder.reset();
  const auto filesLeft = [this] { return countFiles(_folder.path()); };
  EXPECT_EQ(filesLeft(), 2);
  const pid_t child = fork();
  if (child == 0) {
    file.reset();
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  EXPECT_EQ(filesLeft(), 2) << "it is the parent's";
  file.reset();
  EXPECT_EQ(filesLeft(), 1);
  EXPECT_EQ(readFile(_file), "former");
}

TEST_F(AtomicFileTest, NothingIsLeftWhateverEndsTheProcess) {
  const int unnamed = open(_folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  if (unnamed < 0) {
    GTEST_SKIP() << "This file system has no files without a name";
  }
  close(unnamed);
  const pid_t child = fork();
  if (child == 0) {
    umask(0);
    OS::AtomicFile replacing(_file);
    OS::AtomicFile making(_folder / "later");
    replacing.write("new", 3, 0);
    making.write("new", 3, 0);
    raise(SIGKILL);
  }
  waitpid(child, nullptr, 0);
  EXPECT_EQ(countFiles(_folder.path()), 1);
  EXPECT_EQ(readFile(_file), "former");
}

TEST_F(AtomicFileTest, KeepsAFileThatCameMeanwhile) {
  const auto commit = [this](const std::string& name) {
    OS::AtomicFile file(_folder / name, true);
    writeFile(_folder / name, "other");
    EXPECT_THROW(file.commit(), OS::FileWriteError) << name;
    EXPECT_EQ(readFile(_folder / name), "other");
  };
  commit("beside an unnamed file");
  const WithNamedFiles named;
  commit("beside a named file");
  EXPECT_EQ(countFiles(_folder.path()), 3);
  EXPECT_EQ(write(_folder / "later"), "");
  EXPECT_EQ(readFile(_folder / "later"), "new");
}

TEST_F(AtomicFileTest, AProcessThatIsAboutToEndMakesNoMoreFiles) {
  const pid_t child = fork();
  if (child == 0) {
    auto named = std::make_unique<WithNamedFiles>();
    const OS::AtomicFile unfinished(_folder / "unfinished");
    named.reset();
    OS::removeUncommittedFiles();
    alarm(1);
    // Without a name until it is committed.
    std::thread([this] {
      static_cast<void>(write());
      _exit(0);
    }).join();
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM);
  EXPECT_EQ(countFiles(_folder.path()), 1);
  EXPECT_EQ(readFile(_file), "former");
}

}  // namespace

}  // namespace vemo
