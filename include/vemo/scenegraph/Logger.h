#pragma once

#include <vemo/scenegraph/Export.h>

#include <functional>
#include <locale>
#include <sstream>
#include <string>
#include <utility>

namespace vemo {

/// The log of the process. Lines are handed whole to one sink; without a sink
/// nothing is written. Hosts set flags and sink before the first call into the
/// system: each logging statement reads its flag once, at its first
/// execution.
class VEMO_SCENEGRAPH_EXPORT Logger {
 public:
  enum Flag : unsigned {
    INFO_FLAG = 0x2,
    WARNING_FLAG = 0x4,
    ERROR_FLAG = 0x8,
    /// Puts "file:line " in front of each line.
    SOURCE_FLAG = 0x10,
  };
  enum class Level { ERROR = 1, WARNING = 2, INFO = 3 };
  using Sink = std::function<void(const std::string& line)>;

  /// Lives until the process ends, and may be used by at-exit functions. So may
  /// the sink, which must not refer to anything destroyed at the end of `main`.
  static Logger& getSingleton();

  void setFlags(unsigned flags) { _flags = flags; }
  void setSink(Sink sink) { _sink = std::move(sink); }

  bool isEnabled(Level level) const;

  /// Passes the line to the sink, with its origin in front if the flag for it is
  /// set. The caller has checked the level's flag.
  void log(const std::string& text, const char* file, int line, Level level) const;

 private:
  Logger() = default;

  unsigned _flags = 0;
  Sink _sink;
};

// NOLINTBEGIN(bugprone-macro-parentheses): the message is a row of operands.
/// Logs the text of a stream expression: VEMO_LOG_INFO("read " << count). Numbers
/// look the same in every host's locale.
#define VEMO_LOG(level, message)                                                        \
  do {                                                                                  \
    static const bool vemoLogEnabled = ::vemo::Logger::getSingleton().isEnabled(level); \
    if (vemoLogEnabled) {                                                               \
      std::ostringstream vemoLogLine;                                                   \
      vemoLogLine.imbue(std::locale::classic());                                        \
      vemoLogLine << message;                                                           \
      ::vemo::Logger::getSingleton().log(vemoLogLine.str(), __FILE__, __LINE__, level); \
    }                                                                                   \
  } while (false)
// NOLINTEND(bugprone-macro-parentheses)

#define VEMO_LOG_INFO(message) VEMO_LOG(::vemo::Logger::Level::INFO, message)
#define VEMO_LOG_WARNING(message) VEMO_LOG(::vemo::Logger::Level::WARNING, message)
#define VEMO_LOG_ERROR(message) VEMO_LOG(::vemo::Logger::Level::ERROR, message)

}  // namespace vemo
