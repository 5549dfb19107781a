#include "FileArguments.h"

#include "FileChecks.h"
#include "InputFile.h"
#include "OutputFile.h"
#include "TemporaryFiles.h"
#include "output/Messages.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fmt/format.h>
#include <map>
#include <memory>

namespace vemo {

namespace {

namespace fs = std::filesystem;

using PathList = std::vector<FileArguments::Paths>;

[[noreturn]] void failOverwriting(const std::string& file, const std::string& other) {
  throw Failure(ExitCode::WRONG_USAGE, fmt::format("\"{}\" would be written over \"{}\"", file, other));
}

void rejectOverwriting(const PathList& all) {
  std::map<fs::path, std::string> inputs;
  std::map<FileIdentity, std::string> existing;
  std::map<fs::path, std::string> outputs;
  for (const auto& [file, output] : all) {
    inputs.emplace(placeOf(file), file);
    if (const auto identity = identityOf(file)) {
      existing.emplace(*identity, file);
    }
  }
  for (const auto& [file, output] : all) {
    const auto [other, isNew] = outputs.emplace(placeOf(output), file);
    if (!isNew) {
      throw Failure(ExitCode::WRONG_USAGE, fmt::format("\"{}\" and \"{}\" would both be written to \"{}\"",
                                                       other->second, file, output));
    }
    if (const auto input = inputs.find(other->first); input != inputs.end()) {
      failOverwriting(file, input->second);
    }
    if (const auto identity = identityOf(output); identity && existing.contains(*identity)) {
      failOverwriting(file, existing[*identity]);
    }
  }
}

}  // namespace

void FileArguments::addTo(CLI::App& app, const std::string& output) {
  app.add_option("FILE", _file, "The scene archive or database to read; - is standard input")->required();
  app.add_option("OUT", _more, output + "; - is standard output. With -d, further FILEs")
      ->option_text("TEXT ...");
  CLI::Option* const single =
      app.add_option("-o,--output", _output, "Another way to name OUT")->option_text("OUT");
  app.add_option("-d,--directory", _folder,
                 "Write a file for each FILE, of the same base name, into this folder, which is made if it "
                 "does not exist")
      ->option_text("FOLDER")
      ->excludes(single);
}

NewFolder::~NewFolder() {
  std::error_code isNotEmpty;
  fs::remove(_path, isNotEmpty);
}

PathList FileArguments::pathsInFolder(const std::string& extension) const {
  if (isStandardOutput(_folder)) {
    throw Failure(ExitCode::WRONG_USAGE, "-d needs a folder: standard output is not one");
  }
  PathList all;
  std::vector<std::string> files{_file};
  files.insert(files.end(), _more.begin(), _more.end());
  for (const std::string& file : files) {
    if (isStandardInput(file)) {
      throw Failure(ExitCode::WRONG_USAGE, "Standard input has no name for a file in a folder");
    }
    all.push_back({file, fs::path(_folder) / (fs::path(file).stem().string() + extension)});
  }
  rejectOverwriting(all);
  return all;
}

PathList FileArguments::getPaths(const std::string& extension) const {
  if (!_folder.empty()) {
    return pathsInFolder(extension);
  }
  std::vector<std::string> outputs = _more;
  if (!_output.empty()) {
    outputs.insert(outputs.begin(), _output);
  }
  if (outputs.empty()) {
    throw CLI::RequiredError("OUT");
  }
  if (outputs.size() > 1) {
    throw CLI::ExtrasError({_more.back() + " (several FILEs need -d)"});
  }
  if (outputs.front().empty()) {
    throw Failure(ExitCode::WRONG_USAGE, "OUT is empty");
  }
  return {{_file, outputs.front()}};
}

std::vector<Command::Job> FileArguments::makeJobs(const PathList& all,
                                                  const std::function<void(const Paths&)>& write) {
  // By identity: names of different case may be those of one file.
  const auto written = std::make_shared<std::map<FileIdentity, std::string>>();
  std::vector<Command::Job> jobs;
  for (const Paths& paths : all) {
    jobs.push_back({paths.file, [written, paths, write] {
                      if (const auto known = identityOf(paths.output); known && written->contains(*known)) {
                        failOverwriting(paths.file, written->at(*known));
                      }
                      write(paths);
                      if (const auto identity = identityOf(paths.output)) {
                        written->emplace(*identity, paths.output);
                      }
                    }});
  }
  return jobs;
}

void FileArguments::makeFolder() {
  if (_folder.empty()) {
    return;
  }
  // Not looked for before: another program may make it meanwhile.
  std::error_code error;
  const bool isMade = makeOutputFolder(_folder, error);
  if (error) {
    throw Failure(ExitCode::CANNOT_WRITE,
                  fmt::format("Cannot create the folder \"{}\": {}", _folder, error.message()));
  }
  if (isMade) {
    _newFolder.emplace(_folder);
  }
}

void FileArguments::showFailures(const std::vector<ExitCode>& codes) {
  if (const auto written = std::ranges::count(codes, ExitCode::DONE); written < std::ssize(codes)) {
    // Of no file.
    startMessages("");
    showMessage(
        fmt::format("{} files: {} written, {} failed", codes.size(), written, std::ssize(codes) - written));
  }
}

}  // namespace vemo
