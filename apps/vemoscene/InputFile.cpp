#include "InputFile.h"

#include "TemporaryFiles.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include "output/TryAgain.h"
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <cerrno>
#include <cstddef>
#include <fmt/format.h>
#include <fstream>
#include <poll.h>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace vemo {

namespace {

/// Empty until standard input has been read.
std::string& copyOfInput() {
  static std::string file;
  return file;
}

/// Standard input in blocks.
class InputBlocks {
 public:
  /// The next bytes, at least so many unless fewer are left; empty at the end.
  std::string_view next(std::size_t least) {
    std::size_t size = 0;
    while (size < least) {
      const std::size_t count = read(size);
      if (count == 0) {
        break;
      }
      size += count;
    }
    return {_block.data(), size};
  }

 private:
  /// Returns 0 only at the end.
  std::size_t read(std::size_t place) {
    ssize_t count = 0;
    do {
      count = ::read(STDIN_FILENO, _block.data() + place, _block.size() - place);
    } while (count < 0 && tryAgain(STDIN_FILENO, POLLIN));
    if (count < 0) {
      throw Failure(ExitCode::READ_ERROR,
                    fmt::format("Standard input cannot be read: {}", std::generic_category().message(errno)));
    }
    return static_cast<std::size_t>(count);
  }

  static constexpr std::size_t SIZE = std::size_t{1} << 20U;
  std::vector<char> _block = std::vector<char>(SIZE);
};

/// By its first bytes, of which there may be fewer than a signature has; zeros are behind them.
bool mayBeScene(std::string_view start) {
  return start.starts_with(lum::SDBWriter::SIGNATURE) || SceneFormatHandler::isZipSignature(start.data());
}

void requireWritten(const std::ofstream& out) {
  if (!out) {
    throw Failure(ExitCode::CANNOT_WRITE, fmt::format("Cannot write a temporary copy of standard input: {}",
                                                      std::generic_category().message(errno)));
  }
}

/// What is no scene is only copied as far as tells what it is: it may have no end.
void copyStandardInput(const std::string& to) {
  InputBlocks input;
  std::ofstream out(to, std::ios::binary);
  requireWritten(out);
  std::string_view block = input.next(lum::SDBWriter::SIGNATURE.size());
  const bool isCopied = mayBeScene(block);
  do {
    out.write(block.data(), static_cast<std::streamsize>(block.size()));
    requireWritten(out);
  } while (isCopied && !(block = input.next(1)).empty());
  out.close();
  requireWritten(out);
}

}  // namespace

bool isStandardInput(const std::string& file) {
  return file == "-";
}

std::string readableFile(const std::string& file) {
  if (!isStandardInput(file)) {
    return file;
  }
  if (copyOfInput().empty()) {
    const std::string copy = useOwnTemporaryFolder() / "standard input";
    copyStandardInput(copy);
    nameInMessages(copy, "standard input");
    copyOfInput() = copy;
  }
  return copyOfInput();
}

}  // namespace vemo
