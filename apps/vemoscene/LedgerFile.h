#pragma once

#include "OutputFile.h"

#include <string>

namespace vemo {

class SceneLedger;

/// For checkOutput.
extern const FileKind LEDGER_KIND;

/// Writes what became of each element, attribute and entry of a scene archive,
/// one JSON object a line, and returns a summary in one line. Throws Failure and
/// FileWriteError.
std::string writeLedger(const SceneLedger& ledger, const std::string& file);

}  // namespace vemo
