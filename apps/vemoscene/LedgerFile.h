#pragma once

#include <string>

namespace vemo {

class SceneLedger;

/// Writes what became of each element, attribute and entry of a scene archive,
/// one JSON object a line, and returns a summary in one line. Throws Failure.
std::string writeLedger(const SceneLedger& ledger, const std::string& file);

}  // namespace vemo
