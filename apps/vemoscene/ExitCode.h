#pragma once

#include <stdexcept>
#include <string>

namespace vemo {

/// What the program's exit status says. Below 6 they are the numbers of
/// lum::io::FileIoStatus, above 63 those of <sysexits.h>.
enum class ExitCode : int {
  DONE = 0,
  NOT_FOUND = 2,
  UNSUPPORTED_FORMAT = 3,
  READ_ERROR = 5,
  CANNOT_WRITE = 6,
  WRONG_USAGE = 64,
  NO_OPENGL = 69,
  UNEXPECTED = 70,
};

/// The exit codes with their meaning, for the help text: a line each.
std::string describeExitCodes();

/// Ends a command with an exit code. The message is for the user; empty when
/// there is nothing left to say.
class Failure : public std::runtime_error {
 public:
  Failure(ExitCode code, const std::string& message) : std::runtime_error(message), _code(code) {}

  ExitCode getCode() const { return _code; }

 private:
  ExitCode _code;
};

/// Says on standard error what went wrong with the file, for the exception being
/// handled, and gives its exit code.
ExitCode reportFailure(const std::string& file);

}  // namespace vemo
