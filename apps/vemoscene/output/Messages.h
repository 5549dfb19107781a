#pragma once

#include <vemo/base/Progress.h>
#include <vemo/scenegraph/Findings.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace vemo {

/// Writes a message to standard error, preceded by the program's name.
/// "<br>" is a line break, and others are blanks: names may have them. An empty message
/// is not written.
void showMessage(std::string_view message);

/// The same for printable lines, such as those of help.
void showUsage(std::string_view text);

/// Messages have this name instead of that of a file that the user does not know.
void nameInMessages(const std::string& file, const std::string& name);

/// Shows the libraries' findings except notes, and the warnings and errors that
/// they log. Must be called before any of their other functions.
void showLog();

/// Must be called before a file is read: messages about it are its own.
/// @param prefix what its findings begin with; empty for the only file
void startMessages(const std::string& prefix);

/// The last warning or error that was logged and shown.
const std::string& lastLogged();

/// Counts a finding that a command shows itself.
void noteFinding(const Finding& finding);

/// The worst finding so far, shown or not; none without any.
std::optional<Severity> worstFinding();

/// During its lifetime, collects findings, and logged warnings and errors,
/// instead of showing them, for a command that includes them in its result. The
/// destructor shows those that were not taken.
class LogCapture {
 public:
  struct Log {
    std::vector<Finding> findings;
    /// What is not a finding.
    std::vector<std::string> lines;
  };

  LogCapture();
  ~LogCapture();
  LogCapture(const LogCapture&) = delete;
  LogCapture& operator=(const LogCapture&) = delete;

  Log take() { return std::exchange(_log, {}); }

 private:
  Log _log;
  Findings::Sink _former;
};

/// During its lifetime, shows what the program is doing, and the share that is done if it
/// is reported, when that takes longer than a second and standard error is a terminal.
class Progress {
 public:
  explicit Progress(const std::string& activity);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// For the work; must not be called after this is destroyed.
  ProgressReport getReport();

 private:
  static constexpr int UNKNOWN = -1;

  void run(const std::string& activity);
  std::string describeShare() const;

  std::mutex _mutex;
  std::condition_variable _wakeUp;
  bool _ended = false;
  std::atomic<int> _percent = UNKNOWN;
  std::thread _thread;
};

}  // namespace vemo
