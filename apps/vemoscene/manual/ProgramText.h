#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vemo {

/// An option or a positional argument, as --help describes it.
struct ArgumentText {
  /// With their hyphens, short ones first; for a positional argument its one name.
  std::vector<std::string> names;
  bool isPositional = false;
  /// What help texts call the value; empty for a flag.
  std::string value;
  std::string description;
  bool isRepeatable = false;
  bool isRequired = false;

  /// The values that there are, if the name of the value lists them: "front|back".
  std::vector<std::string> getChoices() const;
  bool isFolder() const { return value == "FOLDER"; }
  bool isFile() const { return isPositional || value == "FILE" || value == "OUT"; }
};

struct CommandText {
  std::string name;
  std::string description;
  std::vector<ArgumentText> arguments;
};

/// All that the program understands.
struct ProgramText {
  std::string name;
  std::string description;
  /// After the list of commands.
  std::string footer;
  std::vector<ArgumentText> options;
  std::vector<CommandText> commands;
};

ProgramText describeProgram(const CLI::App& app);

}  // namespace vemo
