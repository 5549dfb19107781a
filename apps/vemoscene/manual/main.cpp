#include "Command.h"
#include "CommandLine.h"
#include "manual/Completion.h"
#include "manual/ManualPage.h"
#include "manual/ProgramText.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

bool write(const std::filesystem::path& file, const std::string& text) {
  std::ofstream out(file, std::ios::binary);
  out << text;
  out.close();
  if (!out) {
    std::cerr << "Cannot write " << file.native() << '\n';
  }
  return !out.fail();
}

}  // namespace

/// Writes the manual page and the completions of shells into a folder. An exception ends the
/// build.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: vemoscene_manual FOLDER\n";
    return 1;
  }
  vemo::Command command;
  CLI::App app;
  vemo::addArguments(app, command);
  const vemo::ProgramText program = vemo::describeProgram(app);
  const std::filesystem::path folder = argv[1];
  const bool isWritten = write(folder / "vemoscene.1", vemo::makeManualPage(program, VEMO_VERSION)) &&
                         write(folder / "vemoscene.bash", vemo::makeBashCompletion(program)) &&
                         write(folder / "vemoscene.zsh", vemo::makeZshCompletion(program));
  return isWritten ? 0 : 1;
}
