#include "FileChecks.h"

#include "InputFile.h"
#include "OutputFile.h"
#include "base/AtomicFile.h"
#include "output/ExitCode.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>

#include <filesystem>
#include <fmt/format.h>
#include <sys/stat.h>
#include <system_error>

namespace vemo {

namespace fs = std::filesystem;

namespace {

/// A shell may have redirected standard output to a file.
std::string pathOfOutput(const std::string& output) {
  return isStandardOutput(output) ? "/dev/stdout" : output;
}

void rejectSamePlace(const std::string& path, const std::string& name, const std::string& output) {
  std::error_code ignored;
  const std::string written = pathOfOutput(output);
  if (fs::equivalent(path, written, ignored) || placeOf(path) == placeOf(written)) {
    throw Failure(ExitCode::WRONG_USAGE, fmt::format("\"{}\" and \"{}\" are the same file", name, output));
  }
}

}  // namespace

fs::path placeOf(const std::string& path) {
  std::error_code ignored;
  // Also through links to files that do not exist yet.
  const fs::path place = fs::absolute(OS::followLinks(path), ignored);
  const fs::path resolved = fs::weakly_canonical(place, ignored);
  // Circular links cannot be resolved.
  return resolved.empty() ? place.lexically_normal() : resolved;
}

std::optional<FileIdentity> identityOf(const std::string& path) {
  struct stat status {};
  const bool isRegular = ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
  return isRegular ? std::optional(FileIdentity(status.st_dev, status.st_ino)) : std::nullopt;
}

void rejectSameFile(const std::string& file, const std::string& output) {
  if (!isStandardInput(file)) {
    rejectSamePlace(file, file, output);
  }
}

void rejectSameOutput(const std::string& output, const std::string& other) {
  rejectSamePlace(pathOfOutput(output), output, other);
}

void requireArchive(const std::string& file) {
  if (detectScene(toWidePath(readableFile(file))) == SceneKind::DATABASE) {
    throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                  fmt::format("\"{}\" is a database: only archives have a ledger", file));
  }
}

}  // namespace vemo
