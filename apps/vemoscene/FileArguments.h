#pragma once

#include "Command.h"
#include "output/ExitCode.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace CLI {
class App;
}

namespace vemo {

/// A folder that is removed if it is empty in the end.
class NewFolder {
 public:
  explicit NewFolder(std::filesystem::path path) : _path(std::move(path)) {}
  ~NewFolder();
  NewFolder(const NewFolder&) = delete;
  NewFolder& operator=(const NewFolder&) = delete;

 private:
  std::filesystem::path _path;
};

/// The scene files that a command reads and the files that it writes, as arguments: FILE OUT,
/// FILE -o OUT, or FILE... -d FOLDER.
class FileArguments {
 public:
  struct Paths {
    std::string file;
    std::string output;
  };

  /// Adds the arguments to a parser, which this must outlive.
  /// @param output what OUT is, for help texts
  void addTo(CLI::App& app, const std::string& output);

  /// Each scene file with its output. Throws CLI::ParseError for arguments that do not go
  /// together, and Failure with WRONG_USAGE if an output would be written twice, or over
  /// another scene file.
  /// @param extension of outputs in a folder
  std::vector<Paths> getPaths(const std::string& extension) const;

  /// A job for each, that writes its output. None replaces the output of another one, which fails with
  /// WRONG_USAGE.
  static std::vector<Command::Job> makeJobs(const std::vector<Paths>& all,
                                            const std::function<void(const Paths&)>& write);

  /// Creates the folder for outputs if there is none. Unless something is written to it, it
  /// is removed with this object. Throws Failure with CANNOT_WRITE.
  void makeFolder();

  /// Shows how many of several files were written, unless all were.
  static void showFailures(const std::vector<ExitCode>& codes);

 private:
  std::vector<Paths> pathsInFolder(const std::string& extension) const;

  std::string _file;
  std::vector<std::string> _more;
  std::string _output;
  std::string _folder;
  std::optional<NewFolder> _newFolder;
};

}  // namespace vemo
