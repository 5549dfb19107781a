#pragma once

#include <string>

namespace lum {
class Node;
}

namespace vemo {

/// Reads a database back and compares it, bit by bit, with the graph of its only
/// record. Prints what was compared. An output that differs, or cannot be read, is
/// removed: Failure with CANNOT_WRITE.
void verifyScene(const std::string& output, lum::Node& written);

/// The same for a copy of another database.
void verifyCopy(const std::string& output, const std::string& original);

}  // namespace vemo
