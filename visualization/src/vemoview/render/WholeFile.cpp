#include "vemoview/render/WholeFile.h"

#include "vemoview/render/RenderErrors.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, int error) {
  throw PictureWriteError("The picture could not be written to \"" + path.string() +
                          "\": " + std::generic_category().message(error));
}

/// A file that is being written. Whoever destroys it without having closed it
/// has failed; nobody examines the close then.
class OpenFile {
 public:
  OpenFile(const fs::path& path, int flags) : _descriptor(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~OpenFile() { close(); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool isOpen() const { return _descriptor >= 0; }

  bool write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
      const ssize_t written = ::write(_descriptor, bytes.data(), bytes.size());
      if (written < 0 && errno != EINTR) {
        return false;
      }
      bytes = bytes.subspan(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
  }

  bool sync() { return ::fsync(_descriptor) == 0; }

  bool close() {
    const int descriptor = std::exchange(_descriptor, -1);
    return descriptor < 0 || ::close(descriptor) == 0;
  }

 private:
  int _descriptor;
};

/// A name in the same folder, so that renaming stays within one file system.
fs::path temporarySibling(const fs::path& path) {
  static std::atomic<unsigned> count = 0;
  return path.parent_path() /
         (".vemoscene-" + std::to_string(::getpid()) + "-" + std::to_string(count++) + ".tmp");
}

void writeStraight(const fs::path& path, std::span<const std::uint8_t> bytes) {
  OpenFile file(path, O_WRONLY);
  if (!file.isOpen() || !file.write(bytes) || !file.close()) {
    fail(path, errno);
  }
}

void writeAndRename(const fs::path& path, std::span<const std::uint8_t> bytes) {
  const fs::path temporary = temporarySibling(path);
  OpenFile file(temporary, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen()) {
    fail(path, errno);
  }
  if (!file.write(bytes) || !file.sync() || !file.close() || ::rename(temporary.c_str(), path.c_str()) != 0) {
    const int error = errno;
    ::unlink(temporary.c_str());
    fail(path, error);
  }
}

}  // namespace

void writeWholeFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
  std::error_code error;
  const fs::path target = fs::weakly_canonical(path, error);
  if (error) {
    fail(path, error.value());
  }
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    writeStraight(target, bytes);
  } else {
    writeAndRename(target, bytes);
  }
}
