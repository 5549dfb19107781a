#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

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

/// Finds what becomes of the cases in a file, which is compared or written likewise:
///
///     ==== What is special about the first case
///     description
///     ----
///     result
void expectCases(const std::string& file,
                 const std::function<std::string(const std::string& description)>& resultOf);

/// The names of the files in a folder of tests/data/expected, without ".txt".
std::vector<std::string> expectedFiles(const std::string& folder);

/// The same as expectAsInFile for a graph, printed with all values of its arrays.
void expectGraph(const lum::Node& root, const std::string& file);

}  // namespace vemo
