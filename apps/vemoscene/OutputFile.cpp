#include "OutputFile.h"

#include "TemporaryFiles.h"
#include "base/AtomicFile.h"
#include "base/ReadableFile.h"
#include "output/ExitCode.h"
#include "output/ResultStream.h"

#include <algorithm>
#include <cctype>
#include <fcntl.h>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vemo {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& output, const std::string& reason) {
  throw Failure(ExitCode::CANNOT_WRITE, fmt::format("Cannot write \"{}\": {}", output, reason));
}

/// At startup, a closed standard output is replaced by a file opened for reading.
void checkStandardOutput() {
  const int flags = fcntl(STDOUT_FILENO, F_GETFL);
  if (flags < 0 || (flags & O_ACCMODE) == O_RDONLY) {
    throw Failure(ExitCode::CANNOT_WRITE, "Standard output is closed");
  }
}

/// Whether a file is of a kind, or empty.
bool isOfKind(const std::string& file, const FileKind& kind) {
  try {
    const std::string start = OS::ReadableFile(file).readStart(kind.start.size());
    return start.empty() || start == kind.start;
  } catch (const std::system_error& error) {
    fail(file,
         fmt::format("its kind cannot be determined ({}); --force replaces it", error.code().message()));
  }
}

void checkSpecialFile(const std::string& output, const FileKind& kind, const fs::file_status& status) {
  if (fs::is_directory(status)) {
    fail(output, "it is a folder");
  }
  if (!kind.isSequential) {
    fail(output, "it is not a regular file");
  }
}

}  // namespace

bool hasExtension(const std::string& output, const FileKind& kind) {
  const std::string_view extension = kind.extension;
  const auto lower = [](unsigned char c) { return std::tolower(c); };
  return output.size() >= extension.size() &&
         std::ranges::equal(std::string_view(output).substr(output.size() - extension.size()), extension, {},
                            lower, lower);
}

void rejectOtherExtension(const std::string& output, const std::string& kinds) {
  if (fs::path(output).has_extension()) {
    throw Failure(
        ExitCode::WRONG_USAGE,
        fmt::format("Cannot write \"{}\": unsupported file extension; supported: {}", output, kinds));
  }
}

bool isStandardOutput(const std::string& output) {
  return output == "-" || output == "/dev/stdout" || output == "/dev/fd/1" || output == "/proc/self/fd/1";
}

void checkOutput(const std::string& output, const FileKind& kind, bool force) {
  removePartialOutputWhenEnded();
  if (isStandardOutput(output)) {
    checkStandardOutput();
    return;
  }
  std::error_code ignored;
  const fs::file_status status = fs::status(output, ignored);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    checkSpecialFile(output, kind, status);
    return;
  }
  if (fs::exists(status) && !force && !isOfKind(output, kind)) {
    fail(output, fmt::format("it exists and is not a {}; --force replaces it", kind.description));
  }
  // Makes the temporary file, and removes it again.
  const OS::AtomicFile attempt(output);
}

void copyToStandardOutput(const fs::path& file) {
  constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20U;
  std::vector<char> block(BLOCK_SIZE);
  ResultStream out;
  try {
    const OS::ReadableFile in(file);
    std::uint64_t position = 0;
    while (const std::size_t count = in.read(block, position)) {
      out.write(block.data(), static_cast<std::streamsize>(count));
      position += count;
    }
  } catch (const std::system_error& error) {
    throw Failure(ExitCode::CANNOT_WRITE,
                  fmt::format("Cannot read {}: {}", file.native(), error.code().message()));
  }
  out.finish();
}

}  // namespace vemo
