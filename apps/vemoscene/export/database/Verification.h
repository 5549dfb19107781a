#pragma once

#include "DatabaseComparison.h"

#include <string>

namespace lum {
class Node;
}

namespace vemo {

/// Reads a database back and compares it, bit by bit, with the graph of its only
/// record. Throws a Failure with CANNOT_WRITE if it differs or cannot be read.
/// @param output what is to be replaced by the database, for messages
DatabaseCounts verifyScene(const std::wstring& database, lum::Node& written, const std::string& output);

/// The same for a copy of another database.
DatabaseCounts verifyCopy(const std::wstring& database, const std::string& original,
                          const std::string& output);

}  // namespace vemo
