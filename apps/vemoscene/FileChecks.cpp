#include "FileChecks.h"

#include "output/ExitCode.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/import/archive/ZipFileReader.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <sstream>
#include <strings.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemo {

namespace {

[[noreturn]] void failToOpen(const std::string& file, int error) {
  if (error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG) {
    throw Failure(ExitCode::NOT_FOUND, fmt::format("File \"{}\" does not exist", file));
  }
  throw Failure(ExitCode::READ_ERROR,
                fmt::format("Can't open file \"{}\": {}", file, std::generic_category().message(error)));
}

std::string readStart(const std::string& file) {
  constexpr std::size_t ENOUGH = 64;
  std::string start(ENOUGH, '\0');
  std::ifstream in(file, std::ios::binary);
  in.read(start.data(), ENOUGH);
  start.resize(static_cast<std::size_t>(in.gcount()));
  return start;
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

std::string describeArchive(const std::string& file) {
  const std::string misnamed = findMisnamedScene(ZipFileReader(toWidePath(file)));
  return misnamed.empty()
             ? "It is a zip archive without an entry \"scene.xml\""
             : fmt::format("It is a zip archive with an entry \"{}\", which must be named \"scene.xml\"",
                           misnamed);
}

/// What the file seems to be; empty when there is no telling.
std::string describeContent(const std::string& file) {
  const std::string start = readStart(file);
  if (SceneFormatHandler::isZipSignature(start.c_str())) {
    return describeArchive(file);
  }
  const std::size_t first = start.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  return first != std::string::npos && start[first] == '<'
             ? "It is XML; a scene is a zip archive with its description as the entry \"scene.xml\""
             : std::string();
}

/// @param messages from the detection of its format
[[noreturn]] void rejectUnknownFormat(const std::string& file, const std::string& messages) {
  std::string reason = messages.substr(0, messages.find('\n'));
  if (reason.empty()) {
    reason = describeContent(file);
  }
  throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                fmt::format("Unknown file format \"{}\"{}{}", file, reason.empty() ? "" : ": ", reason));
}

}  // namespace

void requireReadable(const std::string& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) {
    failToOpen(file, errno);
  }
  if (S_ISDIR(status.st_mode)) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT, fmt::format("\"{}\" is a folder, not a file", file));
  }
  if (!S_ISREG(status.st_mode)) {
    throw Failure(ExitCode::READ_ERROR, fmt::format("\"{}\" is a {}, not a file", file,
                                                    S_ISFIFO(status.st_mode) ? "pipe" : "device"));
  }
  if (faccessat(AT_FDCWD, file.c_str(), R_OK, AT_EACCESS) != 0) {
    failToOpen(file, errno);
  }
  if (status.st_size == 0) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT, fmt::format("\"{}\" is empty", file));
  }
}

void rejectSameFile(const std::string& file, const std::string& output) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  // Neither needs to exist yet.
  const auto placeOf = [&ignored](const std::string& path) {
    return fs::weakly_canonical(fs::absolute(path, ignored), ignored);
  };
  if (fs::equivalent(file, output, ignored) || placeOf(file) == placeOf(output)) {
    throw Failure(ExitCode::WRONG_USAGE, fmt::format("\"{}\" and \"{}\" are the same file", file, output));
  }
}

SceneKind detectScene(const std::string& file) {
  std::ostringstream messages;
  switch (SceneFormatHandler::detectSceneFormat(toWidePath(file), messages)) {
    case SceneFormatHandler::ZippedScene:
      return SceneKind::ARCHIVE;
    case SceneFormatHandler::SceneDatabase:
      return SceneKind::DATABASE;
    case SceneFormatHandler::FileMissing:
      failToOpen(file, ENOENT);
    case SceneFormatHandler::FileUnreadable:
      failToOpen(file, EACCES);
    case SceneFormatHandler::UnknownFormat:
      break;
  }
  rejectUnknownFormat(file, messages.str());
}

void requireArchive(const std::string& file) {
  if (detectScene(file) == SceneKind::DATABASE) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                  fmt::format("\"{}\" is a database: only archives have a ledger", file));
  }
}

}  // namespace vemo
