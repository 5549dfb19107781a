#include "FileChecks.h"

#include "output/ExitCode.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneFormatHandler.h>

#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemo {

void rejectPipe(const std::string& file) {
  std::error_code ignored;
  if (std::filesystem::is_fifo(file, ignored)) {
    throw Failure(ExitCode::READ_ERROR, fmt::format("\"{}\" is a pipe, not a file", file));
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

// O_PATH also opens files that may not be read, and never waits for a pipe.
SceneKind detectScene(const std::string& file) {
  std::ostringstream messages;
  switch (SceneFormatHandler::detectSceneFormat(toWidePath(file), messages)) {
    case SceneFormatHandler::ZippedScene:
      return SceneKind::ARCHIVE;
    case SceneFormatHandler::SceneDatabase:
      return SceneKind::DATABASE;
    case SceneFormatHandler::FileMissing:
      throw Failure(ExitCode::NOT_FOUND, fmt::format("File \"{}\" does not exist", file));
    case SceneFormatHandler::FileUnreadable:
      throw Failure(ExitCode::READ_ERROR, fmt::format("Can't open file \"{}\"", file));
    case SceneFormatHandler::UnknownFormat:
      break;
  }
  throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                fmt::format("{}\nUnknown file format \"{}\"", messages.str(), file));
}

void requireArchive(const std::string& file) {
  if (detectScene(file) == SceneKind::DATABASE) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                  fmt::format("\"{}\" is a database: only archives have a ledger", file));
  }
}

ReplacementWatch::ReplacementWatch(const std::string& path)
    : _path(path), _former(open(path.c_str(), O_PATH | O_CLOEXEC)) {}

ReplacementWatch::~ReplacementWatch() {
  if (_former >= 0) {
    close(_former);
  }
}

bool ReplacementWatch::isReplaced() const {
  struct stat now {};
  struct stat before {};
  if (stat(_path.c_str(), &now) != 0) {
    return false;
  }
  return _former < 0 || fstat(_former, &before) != 0 || now.st_dev != before.st_dev ||
         now.st_ino != before.st_ino;
}

}  // namespace vemo
