#include "support/Expected.h"

#include "support/Files.h"
#include "support/GraphText.h"

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

void expectGraph(const lum::Node& root, const std::string& file) {
  expectAsInFile(jsonText(root), file);
}

}  // namespace vemo
