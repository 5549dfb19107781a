#include "vemoview/import/scene/FormatDetection.h"

#include "base/ReadableFile.h"
#include <vemo/base/Platform.h>
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <algorithm>
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

constexpr std::size_t SIGNATURE_BYTES = ZIP_SIGNATURE.size();

/// Throws std::system_error or UnreadableFile if the system cannot open or read it.
DetectedFormat detectReadable(const std::wstring& path, std::ostream& messages) {
  const std::string file = toNativePath(Platform::filesystem().getFilePath(path));
  const std::string start = OS::ReadableFile(file).readStart(SIGNATURE_BYTES);
  if (start.size() < SIGNATURE_BYTES) {
    return {Handler::UnknownFormat};
  }
  if (Handler::isZipSignature(start.data())) {
    return {Handler::containsSceneInZip(path) ? Handler::ZippedScene : Handler::UnknownFormat};
  }
  if (start.front() == lum::SDBWriter::SIGNATURE.front()) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
      return failed(errno);
    }
    return {sdb::checkFormat(in, messages) ? Handler::SceneDatabase : Handler::UnknownFormat};
  }
  return {Handler::UnknownFormat};
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
  try {
    return detectReadable(path, messages);
  } catch (const std::system_error& error) {
    const int number = error.code().value();
    return number == EISDIR ? DetectedFormat{Handler::UnknownFormat} : failed(number);
  } catch (const lum::io::UnreadableFile& error) {
    return failed(error.getError());
  }
}

void failToOpen(const std::wstring& path, int error) {
  const std::string file = toNativePath(path);
  const FileIoStatus status = lum::io::openingStatus(error);
  if (status == FileIoStatus::NotFound) {
    throw FileError(status, fmt::format("File \"{}\" does not exist", file));
  }
  const std::string cause = error != 0 ? ": " + std::generic_category().message(error) : "";
  throw lum::io::UnreadableFile(fmt::format("Can't open file \"{}\"{}", file, cause), error);
}

}  // namespace vemo
