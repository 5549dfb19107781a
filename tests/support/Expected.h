#pragma once

#include <filesystem>
#include <string>

namespace lum {
class Node;
}

namespace vemo {

/// A file in tests/data.
std::filesystem::path testData(const std::filesystem::path& file);

/// Fails unless a text is that of a file in tests/data/expected. With the
/// environment variable VEMO_UPDATE_EXPECTED set, writes the file instead: look
/// at what changed before you commit it.
void expectAsInFile(const std::string& text, const std::string& file);

/// The same for a graph, printed with all values of its arrays.
void expectGraph(const lum::Node& root, const std::string& file);

}  // namespace vemo
