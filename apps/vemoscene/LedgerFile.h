#pragma once

#include <string>

namespace vemo {

/// Writes what became of each element, attribute and entry of a scene archive,
/// one JSON object a line, and returns a summary in one line. Throws Failure,
/// also when the file is not an archive of the old generation.
std::string writeLedger(const std::string& file, const std::string& ledger);

}  // namespace vemo
