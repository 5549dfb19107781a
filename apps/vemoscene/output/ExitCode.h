#pragma once

#include <stdexcept>
#include <string>

namespace vemo {

/// The program's exit status. Up to 6 the numbers are those of
/// lum::io::FileIoStatus, from 64 on those of <sysexits.h>.
enum class ExitCode : int {
  DONE = 0,
  /// Findings that --fail-on names, or differences.
  FOUND = 1,
  NOT_FOUND = 2,
  /// Any failure of a command that does not distinguish failures.
  TROUBLE = 2,
  UNSUPPORTED_FORMAT = 3,
  READ_ERROR = 5,
  CANNOT_WRITE = 6,
  WRONG_USAGE = 64,
  /// OpenGL, a display or the window's library is missing.
  UNAVAILABLE = 69,
  UNEXPECTED = 70,
};

/// The exit codes with their meanings, one per line, for the help text.
std::string describeExitCodes();

/// Ends a command with an exit code. The message is for the user; an empty one
/// is not shown.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message) : std::runtime_error(message), _code(code) {}

  ExitCode getCode() const { return _code; }

 private:
  ExitCode _code;
};

/// The exception being handled with its exit code, and with the text for the user: it names the file.
Failure currentFailure(const std::string& file);

/// Reports the exception being handled on standard error and returns its exit
/// code.
ExitCode reportFailure(const std::string& file);

}  // namespace vemo
