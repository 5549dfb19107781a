#include "base/AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <string_view>
#include <sys/xattr.h>
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

/// Those that the process does not give to new files; on systems that do not tell, what files
/// hardly ever permit.
unsigned umaskOfProcess() {
  // To ask the system means to change it, also for other threads.
  std::ifstream status("/proc/thread-self/status");
  for (std::string line; std::getline(status, line);) {
    constexpr std::string_view KEY = "Umask:";
    if (line.starts_with(KEY)) {
      return static_cast<unsigned>(std::strtoul(line.c_str() + KEY.size(), nullptr, 8));
    }
  }
  return S_IWOTH;
}

/// Whether the access list of a folder, and not the umask, says what its new files permit.
bool hasDefaultList(const std::filesystem::path& folder) {
  return ::getxattr(folder.c_str(), "system.posix_acl_default", nullptr, 0) > 0;
}

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

/// Returns 0, also on file systems that cannot sync such a file; else an error number.
int syncFile(int file) {
  return ::fsync(file) == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : errno;
}

/// Sets a path to names in a folder until an action on it returns no EEXIST. Returns what
/// the action returned last: 0, or an error number.
template <class Action>
int findName(const std::filesystem::path& folder, std::filesystem::path& path, Action&& action) {
  std::random_device random;
  int error = EEXIST;
  for (int i = 0; i < ATTEMPTS && error == EEXIST; ++i) {
    path = folder / (".vemo-" + std::to_string(random()) + "-" + std::to_string(random()) + ".tmp");
    error = action();
  }
  return error;
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
    std::filesystem::path target = path.parent_path() / next;
    // What /proc says of a file that has no name is no path.
    if (std::filesystem::exists(path, error) && !std::filesystem::equivalent(path, target, error)) {
      break;
    }
    path = std::move(target);
  }
  return path;
}

/// A file that is not in place yet: open until it is moved.
class AtomicFile::Temporary {
 public:
  Temporary() = default;
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  virtual ~Temporary() {
    if (_file >= 0) {
      ::close(_file);
    }
  }

  int getDescriptor() const { return _file; }
  const std::filesystem::path& getPath() const { return _path; }

  /// Returns 0, or an error number; nothing has changed then. Not for a second call.
  virtual int moveTo(const std::filesystem::path& target, bool keepExisting) = 0;

 protected:
  int _file = -1;
  std::filesystem::path _path;
};

/// A file without a name: nothing is left of it, whatever ends the process.
class AtomicFile::UnnamedFile final : public Temporary {
 public:
  UnnamedFile(std::filesystem::path folder, mode_t mode) : _folder(std::move(folder)) {
    _file = ::open(_folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    _path = "/proc/self/fd/" + std::to_string(_file);
  }

  /// False where files cannot be made without a name, or not be named later.
  bool isUsable() const {
    struct stat status {};
    return ::fstat(_file, &status) == 0 && ::access(_path.c_str(), F_OK) == 0 && isModeRight(status.st_mode);
  }

  int moveTo(const std::filesystem::path& target, bool keepExisting) override {
    // A signal that is to end the process waits until no name is left.
    const std::lock_guard lock(uncommittedFiles().mutex);
    const int error = link(target);
    // Only renaming can replace a file.
    return error == EEXIST && !keepExisting ? replace(target) : error;
  }

 private:
  /// Linux before 6.0 forgets the umask on some file systems.
  bool isModeRight(mode_t mode) const {
    return (mode & S_IWOTH) == 0 || (mode & umaskOfProcess()) == 0 || hasDefaultList(_folder);
  }

  int link(const std::filesystem::path& name) const {
    return ::linkat(AT_FDCWD, _path.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
  }

  int replace(const std::filesystem::path& target) const {
    std::filesystem::path name;
    int error = findName(_folder, name, [&] { return link(name); });
    if (error == 0 && ::rename(name.c_str(), target.c_str()) != 0) {
      error = errno;
      ::unlink(name.c_str());
    }
    return error;
  }

  std::filesystem::path _folder;
};

/// A file with a name, removed at the end unless it was moved.
class AtomicFile::NamedFile final : public Temporary {
 public:
  /// Throws std::system_error.
  NamedFile(const std::filesystem::path& folder, mode_t mode) {
    const std::lock_guard lock(uncommittedFiles().mutex);
    if (const int error = findName(folder, _path, [&] { return create(mode); })) {
      throw std::system_error(error, std::generic_category());
    }
  }

  ~NamedFile() override {
    // A forked child has a copy of this object; the file is its parent's.
    if (_process == ::getpid() && forget()) {
      ::unlink(_path.c_str());
    }
  }

  int moveTo(const std::filesystem::path& target, bool keepExisting) override {
    const unsigned flags = keepExisting ? RENAME_NOREPLACE : 0;
    if (::close(std::exchange(_file, -1)) != 0 ||
        ::renameat2(AT_FDCWD, _path.c_str(), AT_FDCWD, target.c_str(), flags) != 0) {
      return errno;
    }
    forget();
    return 0;
  }

 private:
  /// Listed before it exists: it must not be forgotten for want of memory.
  int create(mode_t mode) {
    const auto listed = uncommittedFiles().paths.insert(_path).first;
    _file = ::open(_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (_file >= 0) {
      return 0;
    }
    const int error = errno;
    uncommittedFiles().paths.erase(listed);
    return error;
  }

  /// False when it was moved.
  bool forget() {
    const std::lock_guard lock(uncommittedFiles().mutex);
    return uncommittedFiles().paths.erase(_path) > 0;
  }

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
  requireName();
  inspectTarget();
  _folder = _place.parent_path();
  makeTemporary();
  keepOwner();
}

AtomicFile::~AtomicFile() = default;

/// After links were followed.
void AtomicFile::requireName() const {
  std::error_code ignored;
  if (std::filesystem::is_symlink(_target, ignored) && std::filesystem::exists(_target, ignored)) {
    throw FileWriteError(_target, "it can only be replaced as a whole, and has no name");
  }
}

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
  if (S_ISLNK(status.st_mode)) {
    // More links than were followed, or a circle of them.
    fail(ELOOP);
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
  if (const int failure = _formerAccess.readFrom(_place)) {
    fail("its access list cannot be read", failure);
  }
  _former = status;
}

void AtomicFile::makeTemporary() {
  // The replacement of a private file is private from its first byte on.
  const mode_t mode = _former ? 0600 : 0666;
  auto unnamed = std::make_unique<UnnamedFile>(_folder, mode);
  if (unnamed->isUsable()) {
    _temporary = std::move(unnamed);
    return;
  }
  try {
    _temporary = std::make_unique<NamedFile>(_folder, mode);
  } catch (const std::system_error& error) {
    const bool isFoldersFault = error.code() != std::errc::too_many_files_open &&
                                error.code() != std::errc::too_many_files_open_in_system;
    if (_former && isFoldersFault) {
      fail("it can only be replaced as a whole, and no file can be created in its folder",
           error.code().value());
    }
    fail(error.code().value());
  }
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

void AtomicFile::keepPermissions() const {
  if (!_former) {
    return;
  }
  // The list first: without it, the bits may permit more.
  if (const int error = _formerAccess.writeTo(_temporary->getDescriptor())) {
    fail("it can only be replaced as a whole, and would get another access list", error);
  }
  struct stat made {};
  if (::fstat(_temporary->getDescriptor(), &made) != 0) {
    fail(errno);
  }
  // Where all files have the same, nobody may change it.
  const unsigned mode = _former->st_mode & PERMISSION_BITS;
  if ((made.st_mode & PERMISSION_BITS) != mode && ::fchmod(_temporary->getDescriptor(), mode) != 0) {
    fail(errno);
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
  keepPermissions();
  if (const int error = syncFile(_temporary->getDescriptor())) {
    fail(error);
  }
  if (const int error = _temporary->moveTo(_place, _keepExisting)) {
    fail(error);
  }
  syncFolder();
}

// The file is in place: only an error of the disk is one.
void AtomicFile::syncFolder() const {
  const int folder = ::open(_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) {
    return;
  }
  const int error = syncFile(folder);
  ::close(folder);
  if (error == EIO) {
    fail("it is in place, but may not be on the disk", error);
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
