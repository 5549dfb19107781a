#pragma once

#include "ExitCode.h"

namespace vemo {

/// Does what the arguments say; errors are shown.
ExitCode runCommandLine(int argc, char** argv);

}  // namespace vemo
