#pragma once

#include "output/ExitCode.h"

namespace vemo {

/// Runs the program. Errors are shown and become the exit code.
ExitCode runCommandLine(int argc, char** argv);

}  // namespace vemo
