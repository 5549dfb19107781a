#pragma once

#include <string>

namespace vemo {

struct ProgramText;

/// The functions by which shells complete a program's arguments.
std::string makeBashCompletion(const ProgramText& program);
std::string makeZshCompletion(const ProgramText& program);

}  // namespace vemo
