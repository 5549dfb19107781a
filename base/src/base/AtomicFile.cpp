#include "base/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <random>
#include <set>
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

/// The names of temporary files that are neither moved nor removed yet.
struct UncommittedFiles {
  std::mutex mutex;
  std::set<std::filesystem::path> paths;
};

/// Never destroyed: files may be written until the very end of the process.
UncommittedFiles& uncommittedFiles() {
  static auto& files = *new UncommittedFiles;
  return files;
}

bool isSpecialFile(const std::filesystem::path& path) {
  std::error_code ignored;
  const std::filesystem::file_status status = std::filesystem::status(path, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
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

/// The temporary file: open, and removed at the end unless it was moved.
class AtomicFile::Temporary {
 public:
  /// Creates a file in a folder, unless that fails.
  Temporary(const std::filesystem::path& folder, mode_t mode) {
    std::random_device random;
    const std::lock_guard lock(uncommittedFiles().mutex);
    for (int i = 0; i < ATTEMPTS && (i == 0 || _error == EEXIST); ++i) {
      _path = folder / (".vemo-" + std::to_string(random()) + "-" + std::to_string(random()) + ".tmp");
      const auto listed = uncommittedFiles().paths.insert(_path).first;
      _file = ::open(_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
      if (_file >= 0) {
        return;
      }
      _error = errno;
      uncommittedFiles().paths.erase(listed);
    }
  }

  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  ~Temporary() {
    if (_file >= 0) {
      ::close(_file);
    }
    // A forked child has a copy of this object; the file is its parent's.
    if (_process == ::getpid() && forget()) {
      ::unlink(_path.c_str());
    }
  }

  bool isOpen() const { return _file >= 0; }
  /// Why it is not open.
  int getError() const { return _error; }
  int getDescriptor() const { return _file; }
  const std::filesystem::path& getPath() const { return _path; }

  /// These return 0, or an error number.
  int close() { return ::close(std::exchange(_file, -1)) == 0 ? 0 : errno; }
  int moveTo(const std::filesystem::path& target, unsigned flags) {
    if (::renameat2(AT_FDCWD, _path.c_str(), AT_FDCWD, target.c_str(), flags) != 0) {
      return errno;
    }
    forget();
    return 0;
  }

 private:
  /// False when it was moved, or never there.
  bool forget() {
    const std::lock_guard lock(uncommittedFiles().mutex);
    return uncommittedFiles().paths.erase(_path) > 0;
  }

  std::filesystem::path _path;
  int _file = -1;
  int _error = 0;
  pid_t _process = ::getpid();
};

void removeUncommittedFiles() {
  // Never unlocked: another thread would make the next file.
  uncommittedFiles().mutex.lock();
  for (const std::filesystem::path& path : uncommittedFiles().paths) {
    ::unlink(path.c_str());
  }
}

AtomicFile::AtomicFile(const std::filesystem::path& path, bool keepExisting)
    : _target(followLinks(path)), _keepExisting(keepExisting) {
  inspectTarget();
  _folder = _place.parent_path();
  makeTemporary();
  keepOwner();
}

AtomicFile::~AtomicFile() = default;

void AtomicFile::inspectTarget() {
  if (_target.empty() || _target.native().find('\0') != std::string::npos) {
    fail(EINVAL);
  }
  std::error_code error;
  _place = std::filesystem::absolute(_target, error);
  if (error) {
    fail(error.value());
  }
  struct stat status {};
  if (::lstat(_place.c_str(), &status) != 0) {
    return;
  }
  if (!S_ISREG(status.st_mode)) {
    throw FileWriteError(_target, "it is not a regular file");
  }
  if (_keepExisting) {
    fail(EEXIST);
  }
  // Replacing a file needs no permission to write it.
  if (::faccessat(AT_FDCWD, _place.c_str(), W_OK, AT_EACCESS) != 0) {
    fail(errno);
  }
  _former = status;
}

void AtomicFile::makeTemporary() {
  // The replacement of a private file is private from its first byte on.
  _temporary = std::make_unique<Temporary>(_folder, _former ? 0600 : 0666);
  if (_temporary->isOpen()) {
    return;
  }
  if (_former) {
    fail("it can only be replaced as a whole, and no file can be created in its folder",
         _temporary->getError());
  }
  fail(_temporary->getError());
}

void AtomicFile::keepOwner() const {
  if (!_former) {
    return;
  }
  struct stat made {};
  if (::fstat(_temporary->getDescriptor(), &made) != 0) {
    fail(errno);
  }
  const bool isSame = made.st_uid == _former->st_uid && made.st_gid == _former->st_gid;
  if (!isSame && ::fchown(_temporary->getDescriptor(), _former->st_uid, _former->st_gid) != 0) {
    fail("it can only be replaced as a whole, and would get another owner or group", errno);
  }
}

void AtomicFile::write(const void* data, std::size_t size, std::uint64_t position) {
  const auto* bytes = static_cast<const char*>(data);
  while (size > 0) {
    const ::ssize_t done = ::pwrite(_temporary->getDescriptor(), bytes, std::min(size, MAX_WRITE_BYTES),
                                    static_cast<::off_t>(position));
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

const std::filesystem::path& AtomicFile::getTemporaryPath() const {
  return _temporary->getPath();
}

void AtomicFile::commit() {
  if (_former && ::fchmod(_temporary->getDescriptor(), _former->st_mode & PERMISSION_BITS) != 0) {
    fail(errno);
  }
  if (::fsync(_temporary->getDescriptor()) != 0) {
    fail(errno);
  }
  if (const int error = _temporary->close()) {
    fail(error);
  }
  if (const int error = _temporary->moveTo(_place, _keepExisting ? RENAME_NOREPLACE : 0)) {
    fail(error);
  }
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

void AtomicFile::fail(const std::string& reason, int error) const {
  throw FileWriteError(_target, reason + ": " + std::generic_category().message(error));
}

SequentialFile::SequentialFile(const std::filesystem::path& path) : _path(path) {
  if (!isSpecialFile(path)) {
    _file.emplace(path);
    return;
  }
  _special.reset(std::fopen(path.c_str(), "wbe"));
  if (_special == nullptr) {
    fail();
  }
}

SequentialFile::~SequentialFile() = default;

void SequentialFile::append(std::span<const std::uint8_t> bytes) {
  if (_file) {
    _file->write(bytes.data(), bytes.size(), _size);
  } else if (std::fwrite(bytes.data(), 1, bytes.size(), _special.get()) != bytes.size()) {
    fail();
  }
  _size += bytes.size();
}

void SequentialFile::commit() {
  if (_file) {
    _file->commit();
  } else if (std::fflush(_special.get()) != 0) {
    fail();
  }
}

void SequentialFile::fail() const {
  throw FileWriteError(_path, std::generic_category().message(errno));
}

void writeAtomically(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  SequentialFile file(path);
  file.append(bytes);
  file.commit();
}

}  // namespace vemo::OS
