#include "support/Files.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Logger.h>

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <vector>

namespace vemo {

namespace {

// Places that log look at their flag once: it is set before any of them runs.
const bool LOGGING = [] {
  Logger::getSingleton().setFlags(Logger::INFO_FLAG | Logger::WARNING_FLAG);
  return true;
}();

TEST(FindingsTest, AreAllOnTheirPage) {
  std::string table = "| code | severity | meaning |\n|---|---|---|\n";
  for (const FindingKind& kind : findingKinds()) {
    table.append("| `").append(kind.name).append("` | ").append(severityName(kind.severity));
    table.append(" | ").append(kind.meaning).append(" |\n");
  }
  EXPECT_TRUE(
      readFile(std::filesystem::path(VEMO_SOURCE_FOLDER) / "docs/user/findings.md").ends_with("\n" + table))
      << "docs/user/findings.md needs the table\n\n"
      << table;
  EXPECT_TRUE(std::ranges::is_sorted(findingKinds(), {}, &FindingKind::name));
}

TEST(FindingsTest, GoToTheSinkElseToTheLog) {
  std::vector<std::string> lines;
  Logger& logger = Logger::getSingleton();
  logger.setSink([&lines](const std::string& line) { lines.push_back(line); });
  std::vector<Finding> found;
  const auto former =
      Findings::getSingleton().setSink([&found](const Finding& finding) { found.push_back(finding); });
  Findings::getSingleton().report({FindingCode::ARRAY_LEFT_OUT, "Gone", "a.bin", "scene/a", 3});
  EXPECT_TRUE(lines.empty());
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].text, "Gone");
  Findings::getSingleton().setSink(former);
  Findings::getSingleton().report(found[0]);
  reportFinding(FindingCode::ATTRIBUTE_WITHOUT_EFFECT, "Kept");
  EXPECT_THAT(lines, testing::ElementsAre(
                         "lost: Gone (array-left-out; item scene/a, line 3 of the scene description, "
                         "entry 'a.bin')",
                         "note: Kept (attribute-without-effect)"));
  logger.setSink({});
}

}  // namespace

}  // namespace vemo
