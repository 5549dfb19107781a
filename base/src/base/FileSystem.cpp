#include <vemo/base/FileSystem.h>
#include <vemo/base/WidePath.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace vemo::OS {
namespace {

/// Of a temporary file's name, so that the whole name stays valid.
constexpr std::size_t MAX_NAME_PART = 100;

/// The system stops reading a path at a zero character.
bool isPath(const std::wstring& path) {
  return !path.empty() && path.find(L'\0') == std::wstring::npos;
}

/// Absolute, so that files in it are found when the working folder has changed.
std::filesystem::path findTemporaryFolder() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (!error) {
    folder = std::filesystem::absolute(folder, error);
  }
  return error ? std::filesystem::path("/tmp") : folder;
}

std::filesystem::path resolve(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  if (error) {
    return path;
  }
  const std::filesystem::path resolved = std::filesystem::weakly_canonical(absolute, error);
  return error ? absolute.lexically_normal() : resolved;
}

}  // namespace

FileSystem::FileSystem() : _temporaryFolder(findTemporaryFolder()) {}

std::wstring FileSystem::getFilePath(const std::wstring& path) const {
  if (!isPath(path)) {
    return path;
  }
  return toWidePath(resolve(toNativePath(path)).native());
}

bool FileSystem::exists(const std::wstring& path) const {
  struct stat status {};
  return isPath(path) && (wideStat(path.c_str(), &status) == 0 || errno == EACCES);
}

int FileSystem::remove(const std::wstring& path) const {
  if (!isPath(path)) {
    return ENOENT;
  }
  return unlink(toNativePath(path).c_str()) == 0 ? 0 : errno;
}

std::wstring FileSystem::makeTemporaryFile(const std::wstring& namePart) const {
  std::string part = toNativePath(namePart).substr(0, MAX_NAME_PART);
  std::ranges::replace_if(
      part, [](char byte) { return byte == '/' || byte == '\0'; }, '_');
  std::string path = (_temporaryFolder / ("vemo-" + part + (part.empty() ? "" : "-") + "XXXXXX")).native();
  // Created exclusively, with a random name, readable by this user alone.
  const int file = mkostemp(path.data(), O_CLOEXEC);
  if (file < 0) {
    return {};
  }
  close(file);
  return toWidePath(path);
}

}  // namespace vemo::OS
