#include "vemoview/import/scene/FormatDetection.h"

#include <vemo/base/Platform.h>
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fmt/format.h>
#include <fstream>
#include <string_view>
#include <sys/stat.h>
#include <system_error>

namespace vemo {

namespace {

using Handler = SceneFormatHandler;
using lum::io::FileError;
using lum::io::FileIoStatus;

constexpr std::string_view ZIP_SIGNATURE = "PK\x03\x04";

DetectedFormat failed(int error) {
  const bool isMissing = lum::io::openingStatus(error) == FileIoStatus::NotFound;
  return {isMissing ? Handler::FileMissing : Handler::FileUnreadable, error};
}

/// The status of an absolute path; an error number if it has none.
int findStatus(const std::wstring& path, struct stat& status) {
  // The system would take the path up to the zero.
  if (path.find(L'\0') != std::wstring::npos) {
    return ENOENT;
  }
  return wideStat(path.c_str(), &status) == 0 ? 0 : errno;
}

}  // namespace

bool SceneFormatHandler::isZipSignature(const char* bytes) {
  // Looks no further than the first difference: there may be nothing behind it.
  return std::ranges::all_of(ZIP_SIGNATURE, [&bytes](char expected) { return *bytes++ == expected; });
}

SceneFormatHandler::SceneFormat SceneFormatHandler::detectSceneFormat(const std::wstring& path,
                                                                      std::ostream& messages) {
  return detectFormat(path, messages).format;
}

DetectedFormat detectFormat(const std::wstring& path, std::ostream& messages) {
  const std::wstring resolved = Platform::filesystem().getFilePath(path);
  struct stat status {};
  if (const int error = findStatus(resolved, status); error != 0) {
    return failed(error);
  }
  // Opening or reading a pipe, a socket or a terminal may block.
  if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
    return {Handler::FileUnreadable};
  }
  std::ifstream file(toNativePath(resolved), std::ios::binary);
  if (!file) {
    return failed(errno);
  }
  std::array<char, ZIP_SIGNATURE.size()> start{};
  if (!file.read(start.data(), start.size())) {
    return {Handler::UnknownFormat};
  }
  if (Handler::isZipSignature(start.data())) {
    return {Handler::containsSceneInZip(path) ? Handler::ZippedScene : Handler::UnknownFormat};
  }
  if (start.front() == lum::SDBWriter::SIGNATURE.front()) {
    file.clear();
    file.seekg(0);
    return {sdb::checkFormat(file, messages) ? Handler::SceneDatabase : Handler::UnknownFormat};
  }
  return {Handler::UnknownFormat};
}

FileError openingError(const std::wstring& path, int error) {
  const std::string file = toNativePath(path);
  const FileIoStatus status = lum::io::openingStatus(error);
  if (status == FileIoStatus::NotFound) {
    return {status, fmt::format("File \"{}\" does not exist", file)};
  }
  const std::string cause = error != 0 ? ": " + std::generic_category().message(error) : "";
  return {status, fmt::format("Can't open file \"{}\"{}", file, cause)};
}

}  // namespace vemo
