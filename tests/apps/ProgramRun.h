#pragma once

#include "support/Files.h"
#include "support/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vemo {

/// What a run of vemoscene gave.
struct ProgramResult {
  /// The exit status; the number of the signal, negative, if one ended it.
  int exitCode;
  std::string out;
  std::string err;
};

/// A run of the program in a folder, with temporary files in another. Standard input is the
/// file ".in".
class ProgramRun {
 public:
  /// Starts it. With an output path standard output goes there. Pipes do not block, as those of
  /// hosts that wait for several.
  ProgramRun(std::vector<std::string> arguments, const std::filesystem::path& folder,
             const std::filesystem::path& temporaryFolder, const std::filesystem::path& output = {})
      : _out(output.empty() ? folder / ".out" : output), _err(folder / ".err") {
    std::vector<char*> argv{const_cast<char*>("vemoscene")};
    for (std::string& argument : arguments) {
      argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    std::filesystem::remove(folder / ".out");
    std::filesystem::remove(_err);
    _process = fork();
    if (_process == 0) {
      dup2(open(_out.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600), STDOUT_FILENO);
      dup2(open(_err.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), STDERR_FILENO);
      setenv("TMPDIR", temporaryFolder.c_str(), 1);
      // A program that hangs ends by the signal.
      alarm(60);
      if (chdir(folder.c_str()) == 0) {
        dup2(open(".in", O_RDONLY | O_CLOEXEC | O_NONBLOCK), STDIN_FILENO);
        execv(VEMOSCENE_PROGRAM, argv.data());
      }
      _exit(127);
    }
  }

  void sendSignal(int signal) const { kill(_process, signal); }

  /// Waits for its end.
  ProgramResult finish() const {
    int status = 0;
    waitpid(_process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
            std::filesystem::is_regular_file(_out) ? readFile(_out) : std::string(), readFile(_err)};
  }

 private:
  std::filesystem::path _out;
  std::filesystem::path _err;
  pid_t _process;
};

/// Runs the program in an empty folder.
class ProgramTest : public testing::Test {
 protected:
  ProgramResult run(const std::vector<std::string>& arguments,
                    const std::filesystem::path& output = {}) const {
    return ProgramRun(arguments, _folder.path(), _temporary.path(), output).finish();
  }

  /// What the program says to a line "$ info scene.zip", behind this line. What goes
  /// to standard error stands behind "! "; the word "" is an empty one.
  std::string answerTo(const std::string& line) const {
    std::istringstream words(line);
    std::vector<std::string> arguments;
    for (std::string word; words >> word;) {
      arguments.push_back(word == "\"\"" ? "" : word);
    }
    arguments.erase(arguments.begin());
    const ProgramResult result = run(arguments);
    std::string text = line + "\n" + result.out;
    std::istringstream messages(result.err);
    for (std::string message; std::getline(messages, message);) {
      text += "! " + message + "\n";
    }
    return text + "exit " + std::to_string(result.exitCode) + "\n\n";
  }

  void expectNoTemporaryFiles() const { EXPECT_TRUE(std::filesystem::is_empty(_temporary.path())); }

  TemporaryFolder _folder;
  TemporaryFolder _temporary;
};

}  // namespace vemo
