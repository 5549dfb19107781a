#include "TemporaryFiles.h"

#include "base/AtomicFile.h"
#include "output/ExitCode.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vemo {

namespace {

/// Never destroyed: the thread below and at-exit handlers use it.
std::filesystem::path& ownFolder() {
  static auto& folder = *new std::filesystem::path;
  return folder;
}

/// Tries again when a file was added meanwhile, but gives up on files that cannot
/// be removed.
void removeOwnFolder() {
  constexpr int ATTEMPTS = 10;
  std::error_code error;
  for (int i = 0; i < ATTEMPTS && std::filesystem::exists(ownFolder(), error); ++i) {
    std::filesystem::remove_all(ownFolder(), error);
  }
}

/// Blocks the signals that ask a process to end, except those that the parent
/// process has set to be ignored.
sigset_t blockEndingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
      sigaddset(&signals, signal);
    }
  }
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  return signals;
}

/// Set once a signal is about to end the process.
std::atomic<bool> isEnding = false;

struct CleanUps {
  /// Also held while something is made that a clean-up removes.
  std::mutex mutex;
  std::vector<std::function<void()>> functions;
};

/// Never destroyed: the thread below uses it.
CleanUps& cleanUps() {
  static auto& result = *new CleanUps;
  return result;
}

/// Ends the process by the signal. `exit` would destroy what the main thread
/// still uses.
void endBySignal(const sigset_t& signals) {
  int signal = 0;
  sigwait(&signals, &signal);
  isEnding = true;
  const std::lock_guard lock(cleanUps().mutex);
  for (const auto& cleanUp : cleanUps().functions) {
    cleanUp();
  }
  std::signal(signal, SIG_DFL);
  pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  raise(signal);
}

/// Requires the blocked signals and the mutex. One thread waits for the signals,
/// since a signal handler may do next to nothing; with several, only one would
/// get the signal.
void callWhenEnded(const sigset_t& signals, std::function<void()> cleanUp) {
  if (cleanUps().functions.empty()) {
    std::thread(endBySignal, signals).detach();
  }
  cleanUps().functions.push_back(std::move(cleanUp));
}

/// Removes those temporary files in a folder that this process has open.
void removeOpenTemporaryFiles(const std::filesystem::path& folder) {
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error)) {
    const std::filesystem::path file = std::filesystem::read_symlink(entry.path(), error);
    if (!error && file.parent_path() == folder && file.extension() == ".tmp") {
      std::filesystem::remove(file, error);
    }
  }
}

}  // namespace

void waitWhenEnding() {
  while (isEnding) {
    pause();
  }
}

void useOwnTemporaryFolder() {
  if (!ownFolder().empty()) {
    return;
  }
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  std::string name = (error ? std::filesystem::path("/tmp") : parent) / "vemoscene-XXXXXX";
  // Signals wait from here on: once the folder exists, it will be removed.
  const sigset_t signals = blockEndingSignals();
  const std::lock_guard lock(cleanUps().mutex);
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(
        ExitCode::CANNOT_WRITE,
        fmt::format("Cannot create a folder for temporary files, \"{}\": {}", name, std::strerror(errno)));
  }
  ownFolder() = name;
  // Registered before the at-exit handlers of the libraries that make files in
  // it, and therefore called after them.
  std::atexit(removeOwnFolder);
  setenv("TMPDIR", name.c_str(), 1);
  callWhenEnded(signals, removeOwnFolder);
}

void removePartialOutputWhenEnded(const std::string& output) {
  std::error_code ignored;
  const std::filesystem::path target = OS::followLinks(std::filesystem::absolute(output, ignored));
  const std::filesystem::path folder = std::filesystem::weakly_canonical(target.parent_path(), ignored);
  const sigset_t signals = blockEndingSignals();
  const std::lock_guard lock(cleanUps().mutex);
  callWhenEnded(signals, [folder] { removeOpenTemporaryFiles(folder); });
}

}  // namespace vemo
