#include "base/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vemo::OS {

namespace {

// Some systems write no more than 2 GiB at once.
constexpr std::size_t MAX_WRITE_BYTES = std::size_t{1} << 30;
constexpr int MAX_LINKS = 40;
constexpr int ATTEMPTS = 100;
constexpr unsigned PERMISSION_BITS = 07777;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void writeInPlace(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "wbe"));
  if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
      std::fflush(file.get()) != 0) {
    throw FileWriteError(path, std::generic_category().message(errno));
  }
}

}  // namespace

FileWriteError::FileWriteError(const std::filesystem::path& file, const std::string& reason)
    : std::runtime_error("Cannot write " + file.native() + ": " + reason) {}

// Key function: one typeinfo per class, so exceptions can be caught across
// libraries.
FileWriteError::~FileWriteError() = default;

std::filesystem::path followLinks(std::filesystem::path path) {
  std::error_code error;
  for (int i = 0; i < MAX_LINKS; ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(path, error);
    if (error) {
      break;
    }
    // An absolute target replaces the whole path.
    path = path.parent_path() / next;
  }
  return path;
}

AtomicFile::AtomicFile(const std::filesystem::path& path, bool keepExisting)
    : _target(followLinks(path)),
      _folder(_target.has_parent_path() ? _target.parent_path() : "."),
      _keepExisting(keepExisting) {
  inspectTarget();
  makeTemporary();
}

AtomicFile::~AtomicFile() {
  if (_file >= 0) {
    ::close(_file);
  }
  if (!_temporary.empty()) {
    ::unlink(_temporary.c_str());
  }
}

void AtomicFile::inspectTarget() {
  if (_target.empty() || _target.native().find('\0') != std::string::npos) {
    fail(EINVAL);
  }
  struct stat status {};
  _hasTarget = ::lstat(_target.c_str(), &status) == 0;
  if (!_hasTarget) {
    return;
  }
  if (!S_ISREG(status.st_mode)) {
    throw FileWriteError(_target, "it is not a regular file");
  }
  if (_keepExisting) {
    fail(EEXIST);
  }
  _permissions = status.st_mode & PERMISSION_BITS;
}

void AtomicFile::makeTemporary() {
  std::random_device random;
  for (int i = 0; i < ATTEMPTS && _file < 0; ++i) {
    std::filesystem::path name =
        _folder / (".vemo-" + std::to_string(random()) + "-" + std::to_string(random()) + ".tmp");
    // The replacement of a private file is private from its first byte on.
    _file =
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, _hasTarget ? 0600 : 0666);
    if (_file >= 0) {
      _temporary = std::move(name);
    } else if (errno != EEXIST) {
      fail(errno);
    }
  }
  if (_file < 0) {
    fail(EEXIST);
  }
}

void AtomicFile::write(const void* data, std::size_t size, std::uint64_t position) {
  const auto* bytes = static_cast<const char*>(data);
  while (size > 0) {
    const ::ssize_t done =
        ::pwrite(_file, bytes, std::min(size, MAX_WRITE_BYTES), static_cast<::off_t>(position));
    if (done < 0 && errno == EINTR) {
      continue;
    }
    if (done <= 0) {
      fail(done < 0 ? errno : EIO);
    }
    bytes += done;
    size -= static_cast<std::size_t>(done);
    position += static_cast<std::uint64_t>(done);
  }
}

void AtomicFile::commit() {
  if (_hasTarget && ::fchmod(_file, _permissions) != 0) {
    fail(errno);
  }
  if (::fsync(_file) != 0) {
    fail(errno);
  }
  if (::close(std::exchange(_file, -1)) != 0) {
    fail(errno);
  }
  const unsigned flags = _keepExisting ? RENAME_NOREPLACE : 0;
  if (::renameat2(AT_FDCWD, _temporary.c_str(), AT_FDCWD, _target.c_str(), flags) != 0) {
    fail(errno);
  }
  _temporary.clear();
  syncFolder();
}

// Errors are ignored: the file is in place, and not every file system can sync a
// folder.
void AtomicFile::syncFolder() const {
  const int folder = ::open(_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder >= 0) {
    ::fsync(folder);
    ::close(folder);
  }
}

void AtomicFile::fail(int error) const {
  throw FileWriteError(_target, std::generic_category().message(error));
}

void writeAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path, ignored);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    writeInPlace(path, bytes);
    return;
  }
  AtomicFile file(path);
  file.write(bytes.data(), bytes.size(), 0);
  file.commit();
}

}  // namespace vemo::OS
