#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace vemo {

/// What a run of vemoscene gave.
struct ProgramResult {
  /// The exit status; the number of the signal, negative, if one ended it.
  int exitCode;
  std::string out;
  std::string err;
};

/// A run of the program in a folder, with temporary files in another.
class ProgramRun {
 public:
  /// Starts it. With an output path standard output goes there.
  ProgramRun(const std::vector<std::string>& arguments, const std::filesystem::path& folder,
             const std::filesystem::path& temporaryFolder, const std::filesystem::path& output = {});

  void sendSignal(int signal) const;

  /// Waits for its end.
  ProgramResult finish();

 private:
  std::filesystem::path _out;
  std::filesystem::path _err;
  pid_t _process;
};

}  // namespace vemo
