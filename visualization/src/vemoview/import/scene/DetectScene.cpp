#include "base/MemoryStream.h"
#include "base/ReadableFile.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/scene/FormatDetection.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemo {

namespace {

using lum::io::FileError;
using lum::io::FileIoStatus;

std::string readStart(const std::wstring& path) {
  constexpr std::size_t ENOUGH = 64;
  try {
    return OS::ReadableFile(toNativePath(path)).readStart(ENOUGH);
  } catch (const std::system_error& error) {
    failToOpen(path, error.code().value());
  }
}

/// The first entry named "scene.xml" in any folder and in any case; empty if there is none.
std::string findMisnamedScene(const ZipFileReader& archive) {
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    const std::string name = archive.getEntryName(i);
    if (strcasecmp(std::filesystem::path(name).filename().c_str(), "scene.xml") == 0) {
      return name;
    }
  }
  return {};
}

std::string describe(const ZipFileReader& archive) {
  const std::string misnamed = findMisnamedScene(archive);
  return misnamed.empty()
             ? "It is a zip archive without an entry \"scene.xml\""
             : fmt::format("It is a zip archive with an entry \"{}\", which must be named \"scene.xml\"",
                           misnamed);
}

bool isXml(std::string_view start) {
  const std::size_t first = start.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  return first != std::string_view::npos && start[first] == '<';
}

bool isArchive(std::string_view start) {
  constexpr std::size_t SIGNATURE_BYTES = 4;
  return start.size() >= SIGNATURE_BYTES && SceneFormatHandler::isZipSignature(start.data());
}

std::string firstLineOf(const std::ostringstream& messages) {
  const std::string text = messages.str();
  return text.substr(0, text.find('\n'));
}

/// What the content seems to be, by its beginning; empty when it cannot be guessed.
template <class Content>  // a path or bytes
std::string describe(std::string_view start, const Content& content) {
  if (isArchive(start)) {
    return describe(ZipFileReader(content));
  }
  return isXml(start) ? "It is XML; a scene is a zip archive with its description as the entry \"scene.xml\""
                      : std::string();
}

bool isDatabase(std::string_view start) {
  return start.starts_with(lum::SDBWriter::SIGNATURE);
}

/// @param file in quotation marks behind a blank, or nothing
/// @param reason may be empty
[[noreturn]] void failUnknown(const std::string& file, const std::string& reason) {
  throw FileError(FileIoStatus::UnsupportedFormat,
                  fmt::format("Unknown file format{}{}{}", file, reason.empty() ? "" : ": ", reason));
}

}  // namespace

void requireReadable(const std::wstring& path) {
  const std::string file = toNativePath(path);
  struct stat status {};
  if (wideStat(path.c_str(), &status) != 0) {
    failToOpen(path, errno);
  }
  if (S_ISDIR(status.st_mode)) {
    throw FileError(FileIoStatus::UnsupportedFormat, fmt::format("\"{}\" is a folder, not a file", file));
  }
  if (!S_ISREG(status.st_mode)) {
    throw lum::io::UnreadableFile(
        fmt::format("\"{}\" is a {}, not a file", file, S_ISFIFO(status.st_mode) ? "pipe" : "device"), 0);
  }
  if (faccessat(AT_FDCWD, file.c_str(), R_OK, AT_EACCESS) != 0) {
    failToOpen(path, errno);
  }
  if (status.st_size == 0) {
    throw FileError(FileIoStatus::UnsupportedFormat, fmt::format("\"{}\" is empty", file));
  }
}

SceneKind detectScene(const std::wstring& path) {
  requireReadable(path);
  const std::string file = toNativePath(path);
  std::ostringstream messages;
  const DetectedFormat detected = detectFormat(path, messages);
  switch (detected.format) {
    case SceneFormatHandler::ZippedScene:
      return SceneKind::ARCHIVE;
    case SceneFormatHandler::SceneDatabase:
      return SceneKind::DATABASE;
    case SceneFormatHandler::FileMissing:
    case SceneFormatHandler::FileUnreadable:
      // The absolute path may be too long, also of a file that is there.
      failToOpen(path, detected.error);
    case SceneFormatHandler::UnknownFormat:
      break;
  }
  const std::string start = readStart(path);
  if (isDatabase(start)) {
    // Throws what is wrong with it.
    const lum::SDBReader damaged(path);
  }
  const std::string reason = firstLineOf(messages);
  failUnknown(fmt::format(" \"{}\"", file), reason.empty() ? describe(start, path) : reason);
}

SceneKind detectScene(std::span<const std::byte> bytes) {
  const std::string_view content(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  std::string reason;
  if (isArchive(content)) {
    if (ZipFileReader(bytes).getSize(SceneFileReader::SCENE_ENTRY) >= 0) {
      return SceneKind::ARCHIVE;
    }
  } else if (content.starts_with(lum::SDBWriter::SIGNATURE.front())) {
    MemoryStream stream(bytes);
    std::ostringstream messages;
    if (sdb::checkFormat(stream, messages)) {
      return SceneKind::DATABASE;
    }
    if (isDatabase(content)) {
      MemoryStream again(bytes);
      const lum::SDBReader damaged(again);
    }
    reason = firstLineOf(messages);
  }
  failUnknown("", reason.empty() ? describe(content, bytes) : reason);
}

}  // namespace vemo
