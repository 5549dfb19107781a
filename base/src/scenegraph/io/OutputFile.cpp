#include "scenegraph/io/OutputFile.h"

#include "scenegraph/io/FileError.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace lum::io {

namespace {

constexpr std::size_t BUFFER_SIZE = std::size_t{1} << 18;
// Some systems take no more than 2 GiB at once.
constexpr std::size_t LARGEST_WRITE = std::size_t{1} << 30;
constexpr int LONGEST_CHAIN_OF_LINKS = 40;
constexpr int ATTEMPTS = 100;
constexpr unsigned PERMISSION_BITS = 07777;

std::filesystem::path followLinks(std::filesystem::path path) {
  std::error_code error;
  for (int i = 0; i < LONGEST_CHAIN_OF_LINKS; ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(path, error);
    if (error) {
      break;
    }
    // An absolute one replaces all of it.
    path = path.parent_path() / next;
  }
  return path;
}

}  // namespace

OutputFile::OutputFile(const std::string& path, bool keepExisting) : _keepExisting(keepExisting) {
  const std::filesystem::path target = followLinks(path);
  _target = target.native();
  _folder = target.has_parent_path() ? target.parent_path().native() : ".";
  inspectTarget();
  makeTemporary();
}

OutputFile::~OutputFile() {
  if (_file >= 0) {
    ::close(_file);
  }
  if (!_temporary.empty()) {
    ::unlink(_temporary.c_str());
  }
}

void OutputFile::inspectTarget() {
  if (_target.empty() || _target.find('\0') != std::string::npos) {
    fail(EINVAL);
  }
  struct stat status {};
  _hasTarget = ::lstat(_target.c_str(), &status) == 0;
  if (!_hasTarget) {
    return;
  }
  if (!S_ISREG(status.st_mode)) {
    throw FileError(FileIoStatus::WriteError, fmt::format("Cannot write {}: it is no regular file", _target));
  }
  if (_keepExisting) {
    fail(EEXIST);
  }
  _permissions = status.st_mode & PERMISSION_BITS;
}

void OutputFile::makeTemporary() {
  std::random_device random;
  for (int i = 0; i < ATTEMPTS && _file < 0; ++i) {
    const std::string name = fmt::format("{}/.sdb-{:08x}{:08x}.tmp", _folder, random(), random());
    // What replaces a private file is private from the first byte on.
    _file =
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, _hasTarget ? 0600 : 0666);
    if (_file >= 0) {
      _temporary = name;
    } else if (errno != EEXIST) {
      fail(errno);
    }
  }
  if (_file < 0) {
    fail(EEXIST);
  }
}

void OutputFile::write(const void* data, std::size_t size) {
  const auto* bytes = static_cast<const char*>(data);
  if (size < BUFFER_SIZE - _buffer.size()) {
    _buffer.append(bytes, size);
    return;
  }
  flush();
  writeNow(bytes, size, _written);
  _written += size;
}

void OutputFile::fill(std::size_t size) {
  const std::string zeros(size, '\0');
  write(zeros.data(), zeros.size());
}

void OutputFile::writeFirst(const std::string& bytes) {
  flush();
  writeNow(bytes.data(), bytes.size(), 0);
}

void OutputFile::flush() {
  writeNow(_buffer.data(), _buffer.size(), _written);
  _written += _buffer.size();
  _buffer.clear();
}

void OutputFile::writeNow(const char* data, std::size_t size, std::uint64_t position) const {
  while (size > 0) {
    const ::ssize_t done =
        ::pwrite(_file, data, std::min(size, LARGEST_WRITE), static_cast<::off_t>(position));
    if (done < 0 && errno == EINTR) {
      continue;
    }
    if (done <= 0) {
      fail(done < 0 ? errno : EIO);
    }
    data += done;
    size -= static_cast<std::size_t>(done);
    position += static_cast<std::uint64_t>(done);
  }
}

void OutputFile::commit() {
  flush();
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

// The file is in place already; a file system that cannot do this is no reason
// to say that it is not.
void OutputFile::syncFolder() const {
  const int folder = ::open(_folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder >= 0) {
    ::fsync(folder);
    ::close(folder);
  }
}

void OutputFile::fail(int error) const {
  throw FileError(FileIoStatus::WriteError,
                  fmt::format("Cannot write {}: {}", _target, std::generic_category().message(error)));
}

}  // namespace lum::io
