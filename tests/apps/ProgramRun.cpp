#include "ProgramRun.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

namespace vemo {

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void redirect(int file, const fs::path& path) {
  dup2(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), file);
}

}  // namespace

ProgramRun::ProgramRun(const std::vector<std::string>& arguments, const fs::path& folder,
                       const fs::path& temporaryFolder, const fs::path& output)
    : _out(output.empty() ? folder / ".out" : output), _err(folder / ".err") {
  std::vector<char*> argv{const_cast<char*>("vemoscene")};
  for (const std::string& argument : arguments) {
    argv.push_back(const_cast<char*>(argument.c_str()));
  }
  argv.push_back(nullptr);
  std::error_code ignored;
  fs::remove(folder / ".out", ignored);
  fs::remove(_err, ignored);
  _process = fork();
  if (_process == 0) {
    redirect(STDOUT_FILENO, _out);
    redirect(STDERR_FILENO, _err);
    setenv("TMPDIR", temporaryFolder.c_str(), 1);
    if (chdir(folder.c_str()) == 0) {
      execv(VEMOSCENE_PROGRAM, argv.data());
    }
    _exit(127);
  }
}

void ProgramRun::sendSignal(int signal) const {
  kill(_process, signal);
}

ProgramResult ProgramRun::finish() {
  int status = 0;
  waitpid(_process, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
          fs::is_regular_file(_out) ? readFile(_out) : std::string(), readFile(_err)};
}

}  // namespace vemo
