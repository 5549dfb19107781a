#include "support/Expected.h"

#include "support/Files.h"
#include "support/GraphText.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>

namespace vemo {

std::filesystem::path testData(const std::filesystem::path& file) {
  return std::filesystem::path(VEMO_TEST_DATA) / file;
}

void expectAsInFile(const std::string& text, const std::string& file) {
  const std::filesystem::path path = testData("expected") / file;
  if (std::getenv("VEMO_UPDATE_EXPECTED") != nullptr) {
    std::filesystem::create_directories(path.parent_path());
    writeFile(path, text);
  }
  EXPECT_EQ(text, readFile(path)) << "expected by " << path;
}

void expectCases(const std::string& file,
                 const std::function<std::string(const std::string& description)>& resultOf) {
  const std::string heading = "==== ";
  const std::string dashes = "----\n";
  const std::string text = readFile(testData("expected") / file);
  std::string actual;
  std::size_t start = text.find(heading);
  while (start != std::string::npos) {
    const std::size_t end = text.find("\n" + heading, start);
    const std::size_t input = text.find('\n', start) + 1;
    const std::size_t result = std::min(text.find(dashes, start), end);
    const std::string description = text.substr(input, result - input);
    actual += text.substr(start, input - start) + description + dashes + resultOf(description);
    start = end == std::string::npos ? end : end + 1;
    actual += start == std::string::npos ? "" : "\n";
  }
  expectAsInFile(actual, file);
}

std::vector<std::string> expectedFiles(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(testData("expected") / folder)) {
    names.push_back(file.path().stem());
  }
  std::ranges::sort(names);
  return names;
}

void expectGraph(const lum::Node& root, const std::string& file) {
  expectAsInFile(jsonText(root), file);
}

}  // namespace vemo
