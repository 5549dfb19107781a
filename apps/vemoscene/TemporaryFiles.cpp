#include "TemporaryFiles.h"

#include "base/AtomicFile.h"
#include "base/MemoryReserve.h"
#include "output/ExitCode.h"
#include <vemo/base/Platform.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace vemo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view FOLDER_PREFIX = "vemoscene-files-";
constexpr std::string_view FOLDER_PATTERN = "XXXXXX";

/// The folder and the process that made it; a forked child has a copy of this.
struct OwnFolder {
  fs::path path;
  pid_t process = 0;
  /// The descriptor that keeps it locked.
  std::atomic<int> lock = -1;
};

/// Never destroyed: the thread below and at-exit handlers use it.
OwnFolder& ownFolder() {
  static auto& folder = *new OwnFolder;
  return folder;
}

/// Tries again when a file was added meanwhile, but gives up on files that cannot
/// be removed.
void removeOwnFolder() {
  constexpr int ATTEMPTS = 10;
  // The process may have no descriptor left to read the folder with.
  if (const int lock = ownFolder().process == getpid() ? ownFolder().lock.exchange(-1) : -1; lock >= 0) {
    close(lock);
  }
  OS::stopWithoutMemory([] {
    std::error_code error;
    for (int i = 0; i < ATTEMPTS && ownFolder().process == getpid() && fs::exists(ownFolder().path, error);
         ++i) {
      fs::remove_all(ownFolder().path, error);
    }
  });
}

/// Differs between machines that share a folder, and changes when one is started anew.
std::string currentMachine() {
  std::ifstream file("/proc/sys/kernel/random/boot_id");
  std::string id;
  std::getline(file, id);
  return id;
}

/// A folder of temporary files. It holds a marker, since people may give theirs such a name, and is
/// locked while its process is alive: the system removes the lock however the process ends. Other
/// machines may not see the lock: the marker names the one that made it.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const fs::path& path)
      : _file(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)) {}
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    if (_file >= 0) {
      close(_file);
    }
  }

  /// Whether a process of this user made it, which has ended. Locks it until this is destroyed.
  bool isAbandoned() const {
    return isOwn("") && isOwn(_marker.c_str()) && flock(_file, LOCK_EX | LOCK_NB) == 0;
  }

  /// Locks it until the process ends; not every file system has locks, but then others cannot lock
  /// it either. Marks it only then: no other process looks for a lock before.
  /// @return the descriptor that keeps the lock, or -1
  int claim() {
    flock(_file, LOCK_EX | LOCK_NB);
    // Needs no other descriptor.
    mknodat(_file, _marker.c_str(), S_IFREG | S_IRUSR | S_IWUSR, 0);
    return std::exchange(_file, -1);
  }

 private:
  /// Whether the folder (""), or a file in it, is this user's.
  bool isOwn(const char* name) const {
    struct stat status {};
    return fstatat(_file, name, &status, AT_EMPTY_PATH | AT_SYMLINK_NOFOLLOW) == 0 &&
           status.st_uid == geteuid();
  }

  /// First: it needs a descriptor for a moment.
  std::string _marker = ".made-by-vemoscene-" + currentMachine();
  int _file;
};

/// Removes the folders of processes that could not remove them.
void removeAbandonedFolders(const fs::path& parent) {
  std::error_code error;
  for (fs::directory_iterator i(parent, error); !error && i != fs::directory_iterator(); i.increment(error)) {
    const std::string name = i->path().filename().native();
    if (name.starts_with(FOLDER_PREFIX) && name.size() == FOLDER_PREFIX.size() + FOLDER_PATTERN.size()) {
      const TemporaryFolder folder(i->path());
      if (folder.isAbandoned()) {
        std::error_code ignored;
        fs::remove_all(i->path(), ignored);
      }
    }
  }
}

/// Makes the folder, which no other process takes for abandoned.
void makeOwnFolder(const fs::path& parent) {
  std::string name = parent / fmt::format("{}{}", FOLDER_PREFIX, FOLDER_PATTERN);
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(ExitCode::CANNOT_WRITE, fmt::format("Cannot create a folder for temporary files in {}: {}",
                                                      parent.native(), std::strerror(errno)));
  }
  std::error_code ignored;
  ownFolder().path = fs::absolute(name, ignored);
  ownFolder().process = getpid();
  ownFolder().lock = TemporaryFolder(name).claim();
}

/// Blocks the signals that ask a process to end, except those that the parent
/// process has set to be ignored.
sigset_t blockEndingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
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
  bool hasThread = false;
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
  // The first process of a container does not end by it.
  _exit(128 + signal);
}

/// Requires the blocked signals and the mutex. One thread waits for the signals,
/// since a signal handler may do next to nothing; with several, only one would
/// get the signal. Without a thread signals end the process at once, and what is left is as
/// after SIGKILL.
void callWhenEnded(const sigset_t& signals, std::function<void()> cleanUp) {
  cleanUps().functions.push_back(std::move(cleanUp));
  if (cleanUps().hasThread) {
    return;
  }
  try {
    std::thread(endBySignal, signals).detach();
    cleanUps().hasThread = true;
  } catch (const std::system_error&) {
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
  }
}

}  // namespace

void waitWhenEnding() {
  while (isEnding) {
    pause();
  }
}

fs::path useOwnTemporaryFolder() {
  if (!ownFolder().path.empty()) {
    return ownFolder().path;
  }
  std::error_code error;
  fs::path parent = fs::temp_directory_path(error);
  if (error) {
    parent = "/tmp";
  }
  removeAbandonedFolders(parent);
  // Signals wait from here on: once the folder exists, it will be removed.
  const sigset_t signals = blockEndingSignals();
  const std::lock_guard lock(cleanUps().mutex);
  makeOwnFolder(parent);
  // Registered before the at-exit handlers of the libraries that make files in
  // it, and therefore called after them.
  std::atexit(removeOwnFolder);
  setenv("TMPDIR", ownFolder().path.c_str(), 1);
  // It may have looked up the former folder.
  Platform::reset();
  callWhenEnded(signals, removeOwnFolder);
  return ownFolder().path;
}

void removePartialOutputWhenEnded() {
  static bool isDone = false;
  if (!std::exchange(isDone, true)) {
    const sigset_t signals = blockEndingSignals();
    const std::lock_guard lock(cleanUps().mutex);
    callWhenEnded(signals, OS::removeUncommittedFiles);
  }
}

bool makeOutputFolder(const fs::path& folder, std::error_code& error) {
  // Incomplete outputs are removed first.
  removePartialOutputWhenEnded();
  const sigset_t signals = blockEndingSignals();
  const std::lock_guard lock(cleanUps().mutex);
  const bool isMade = fs::create_directory(folder, error);
  callWhenEnded(signals, [folder, isMade] {
    std::error_code isNotEmpty;
    if (isMade) {
      fs::remove(folder, isNotEmpty);
    }
  });
  return isMade;
}

}  // namespace vemo
