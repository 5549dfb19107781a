// That a disk which cannot be read is neither the end of a file nor a fault of what is in it.

#include "SceneFixture.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/FileError.h>

#include <cerrno>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// Reads until one fails; negative if none does.
int& readsLeft() {
  static int count = -1;
  return count;
}

template <class... Arguments>
ssize_t readOrFail(long call, Arguments... arguments) {
  int& left = readsLeft();
  if (left >= 0 && left-- == 0) {
    errno = EIO;
    return -1;
  }
  return syscall(call, arguments...);
}

}  // namespace

#pragma GCC visibility push(default)
// In place of the system's, also for libraries.
extern "C" {
ssize_t read(int file, void* bytes, size_t size) {
  return readOrFail(SYS_read, file, bytes, size);
}
// A header may have chosen which of them pread is.
ssize_t readAt(int file, void* bytes, size_t size, off_t position) __asm__("pread");
ssize_t readAt64(int file, void* bytes, size_t size, off_t position) __asm__("pread64");
ssize_t readAt(int file, void* bytes, size_t size, off_t position) {
  return readOrFail(SYS_pread64, file, bytes, size, position);
}
ssize_t readAt64(int file, void* bytes, size_t size, off_t position) {
  return readOrFail(SYS_pread64, file, bytes, size, position);
}
}
#pragma GCC visibility pop

namespace vemo {

namespace {

class FailingDiskTest : public SceneFixture {
 protected:
  FailingDiskTest() {
    _archive.text("unused", "entry");
    write(sceneXml(geometry("polys='quad' scalars='four' name='g'")));
    SceneConverter(archivePath(), _database).run();
  }

  using Work = std::function<void()>;

  /// What is said of it; empty if nothing.
  static std::string messageOf(const Work& work) {
    try {
      work();
      return {};
    } catch (const UnreadableException& exception) {
      return describe(exception);
    } catch (const lum::io::FileError& error) {
      return error.getStatus() == lum::io::FileIoStatus::ReadError ? error.what() : "another status";
    }
  }

  /// Lets each read of the work fail once; returns how many there are.
  static int failEach(const Work& work) {
    for (int reads = 0;; ++reads) {
      readsLeft() = reads;
      const std::string message = messageOf(work);
      if (std::exchange(readsLeft(), -1) >= 0) {
        EXPECT_EQ(message, "");
        return reads;
      }
      EXPECT_THAT(message, testing::EndsWith(": Input/output error")) << reads;
    }
  }

  std::wstring _database = toWidePath((_folder / "scene.sdb").native());
};

TEST_F(FailingDiskTest, IsToldWhicheverReadFails) {
  // Directory, headers and contents of its entries.
  constexpr int READS_OF_ARCHIVE = 10;
  EXPECT_GT(failEach([this] { openScene(archivePath()); }), READS_OF_ARCHIVE);
  EXPECT_GT(failEach([this] { SceneAudit{archivePath()}; }), READS_OF_ARCHIVE);
  // The first bytes, and all that fits into the buffer of a stream.
  EXPECT_GT(failEach([this] { openScene(_database); }), 2);
  EXPECT_GT(failEach([this] {
              std::ostringstream messages;
              const auto load = [](const std::wstring& /*path*/) { return true; };
              if (SceneFormatHandler::loadVemoScene(_database, load, messages) ==
                  lum::io::FileIoStatus::ReadError) {
                std::string text = messages.str();
                text.pop_back();
                throw lum::io::FileError(lum::io::FileIoStatus::ReadError, text);
              }
            }),
            1);
}

}  // namespace

}  // namespace vemo
