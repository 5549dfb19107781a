#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace vemo {

/// The text with whatever could steer a terminal, and bytes that are no UTF-8,
/// replaced by U+FFFD. Line ends stay.
std::string toPrintable(std::string_view text);

/// Writes a message to standard error, with the program's name before it.
/// "<br>" is a line break; an empty message is not written.
void showMessage(std::string_view message);

/// Shows the warnings and errors that the system logs. To be called before
/// anything of the system.
void showLog();

/// While it lives, keeps the warnings and errors that the system logs from being
/// shown, for a command that tells them in its result. Those that nobody took
/// are shown at its end.
class LogKeeper {
 public:
  LogKeeper();
  ~LogKeeper();
  LogKeeper(const LogKeeper&) = delete;
  LogKeeper& operator=(const LogKeeper&) = delete;

  std::vector<std::string> take() { return std::exchange(_lines, {}); }

 private:
  std::vector<std::string> _lines;
};

/// While it lives, says what the program is at when that takes longer than a
/// second and standard error is a terminal.
class Progress {
 public:
  explicit Progress(const std::string& activity);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

 private:
  void run(const std::string& activity);

  std::mutex _mutex;
  std::condition_variable _wakeUp;
  bool _ended = false;
  std::thread _thread;
};

}  // namespace vemo
