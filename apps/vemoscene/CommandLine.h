#pragma once

#include "ExitCode.h"

/// Does what the arguments say; errors are shown.
ExitCode runCommandLine(int argc, char** argv);
