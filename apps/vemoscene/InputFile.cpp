#include "InputFile.h"

#include "TemporaryFiles.h"
#include "output/ExitCode.h"
#include "output/Messages.h"

#include <cstddef>
#include <fstream>
#include <unistd.h>
#include <vector>

namespace vemo {

namespace {

/// Empty until standard input has been read.
std::string& copyOfInput() {
  static std::string file;
  return file;
}

void copyStandardInput(const std::string& to) {
  constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 20U;
  std::vector<char> block(BLOCK_SIZE);
  std::ofstream out(to, std::ios::binary);
  ssize_t count = 0;
  while (out && (count = read(STDIN_FILENO, block.data(), block.size())) > 0) {
    out.write(block.data(), count);
  }
  out.close();
  if (count < 0) {
    throw Failure(ExitCode::READ_ERROR, "Standard input cannot be read");
  }
  if (!out) {
    throw Failure(ExitCode::CANNOT_WRITE, "Cannot write a temporary copy of standard input");
  }
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
