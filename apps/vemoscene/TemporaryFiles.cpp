#include "TemporaryFiles.h"

#include "ExitCode.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <string>
#include <system_error>
#include <thread>

namespace {

/// Never destroyed: the thread below and at-exit functions use it.
std::filesystem::path& ownFolder() {
  static auto& folder = *new std::filesystem::path;
  return folder;
}

/// Again when something was made in it meanwhile; but not for ever, should it
/// be kept by what we cannot remove.
void removeOwnFolder() {
  constexpr int ATTEMPTS = 10;
  std::error_code error;
  for (int i = 0; i < ATTEMPTS && std::filesystem::exists(ownFolder(), error); ++i) {
    std::filesystem::remove_all(ownFolder(), error);
  }
}

/// The signals that ask a process to end, but for those that whoever started
/// this one wants ignored.
sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
      sigaddset(&signals, signal);
    }
  }
  return signals;
}

/// A thread waits for the signals, since a handler could not remove a folder;
/// then the process ends by the signal as if nobody had waited for it. `exit`
/// would destroy what the main thread is still working with.
void removeOwnFolderWhenEnded() {
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  std::thread([signals] {
    int signal = 0;
    sigwait(&signals, &signal);
    removeOwnFolder();
    std::signal(signal, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    raise(signal);
  }).detach();
}

}  // namespace

void useOwnTemporaryFolder() {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  std::string name = (error ? std::filesystem::path("/tmp") : parent) / "vemoscene-XXXXXX";
  removeOwnFolderWhenEnded();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(ExitCode::CANNOT_WRITE, fmt::format("Cannot make a folder for temporary files, \"{}\": {}",
                                                      name, std::strerror(errno)));
  }
  ownFolder() = name;
  // Registered before the at-exit functions of those who make files in it, and
  // so called after them.
  std::atexit(removeOwnFolder);
  setenv("TMPDIR", name.c_str(), 1);
}
