#pragma once

#include "output/ExitCode.h"

namespace CLI {
class App;
}

namespace vemo {

struct Command;

/// Adds all that the program understands to a parser; parsing it fills `command`.
void addArguments(CLI::App& app, Command& command);

/// Runs the program. Errors are shown and become the exit code.
ExitCode runCommandLine(int argc, char** argv);

}  // namespace vemo
