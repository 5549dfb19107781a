#include "FileChecks.h"

#include "InputFile.h"
#include "OutputFile.h"
#include "base/AtomicFile.h"
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
  // Also through links to files that do not exist yet.
  const fs::path place = fs::absolute(OS::followLinks(path), ignored);
  const fs::path resolved = fs::weakly_canonical(place, ignored);
  // Circular links cannot be resolved.
  return resolved.empty() ? place.lexically_normal() : resolved;
}

void rejectSameFile(const std::string& file, const std::string& output) {
  if (isStandardInput(file)) {
    return;
  }
  std::error_code ignored;
  // A shell may append standard output to the file.
  const fs::path written = isStandardOutput(output) ? "/dev/stdout" : output;
  if (fs::equivalent(file, written, ignored) || placeOf(file) == placeOf(written)) {
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
