#pragma once

#include <string>

namespace vemo {

struct ProgramText;

/// The manual page of a program, for man.
std::string makeManualPage(const ProgramText& program, const std::string& version);

}  // namespace vemo
