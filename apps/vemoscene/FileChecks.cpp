#include "FileChecks.h"

#include "InputFile.h"
#include "output/ExitCode.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>

#include <filesystem>
#include <fmt/format.h>
#include <system_error>

namespace vemo {

namespace fs = std::filesystem;

fs::path placeOf(const std::string& path) {
  std::error_code ignored;
  return fs::weakly_canonical(fs::absolute(path, ignored), ignored);
}

void rejectSameFile(const std::string& file, const std::string& output) {
  if (isStandardInput(file)) {
    return;
  }
  std::error_code ignored;
  const fs::path place = placeOf(file);
  if (fs::equivalent(file, output, ignored) || (!place.empty() && place == placeOf(output))) {
    throw Failure(ExitCode::WRONG_USAGE, fmt::format("\"{}\" and \"{}\" are the same file", file, output));
  }
}

void requireArchive(const std::string& file) {
  if (detectScene(toWidePath(readableFile(file))) == SceneKind::DATABASE) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                  fmt::format("\"{}\" is a database: only archives have a ledger", file));
  }
}

}  // namespace vemo
