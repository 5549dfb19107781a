// The tables of keys: what the page on the scene format says of them, and what
// holds for every element and key.

#include "SceneFixture.h"
#include "vemoview/import/scene/SceneFormat.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace vemo {

namespace {

/// As the page has it: from the heading to the last row.
std::string tableText(const ElementTable& table) {
  std::string text = "| key | type | default | effect |\n|---|---|---|---|\n";
  for (const KeyText& key : table.keys) {
    text += "| `" + key.name + "` | " + key.type + " | " + key.defaultText + " | " + key.meaning + " |\n";
  }
  return text;
}

/// The tables of the page, by each element that the heading above them quotes;
/// those of all elements are under the empty name.
std::multimap<std::string, std::string> readPage() {
  std::ifstream page(std::filesystem::path(VEMO_SOURCE_FOLDER) / "docs/user/scene-format.md");
  const std::regex quoted("`([^`]*)`");
  std::multimap<std::string, std::string> tables;
  std::set<std::string> elements;
  std::string table;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) {
      elements = {std::sregex_token_iterator(line.begin(), line.end(), quoted, 1), {}};
    }
    if (line.starts_with("|")) {
      table += line + "\n";
    } else if (!table.empty()) {
      for (const std::string& element : elements.empty() ? std::set<std::string>{""} : elements) {
        tables.emplace(element, table);
      }
      table.clear();
    }
  }
  return tables;
}

TEST(SceneFormatPage, HasTheTablesOfKeysAndNoOther) {
  const auto page = readPage();
  std::set<std::string> known;
  for (const ElementTable& table : describeSceneFormat()) {
    const std::string text = tableText(table);
    const auto [first, last] = page.equal_range(table.element);
    EXPECT_TRUE(std::any_of(first, last, [&text](const auto& found) { return found.second == text; }))
        << "The section on `" << table.element << "` in docs/user/scene-format.md needs the table\n\n"
        << text;
    known.insert(text);
  }
  EXPECT_GT(known.size(), 20U);
  for (const auto& [element, text] : page) {
    EXPECT_TRUE(!text.starts_with("| key |") || known.contains(text))
        << "Nothing reads this table of `" << element << "`:\n\n"
        << text;
  }
}

class AllElements : public SceneFixture {
 protected:
  AllElements() { _archive.bytes("e", {}); }

  /// A value that suits the key's type.
  static std::string goodValue(const KeyText& key) {
    return key.type == "colour" ? "ff8000ff" : key.type == "entry" ? "e" : "1";
  }
  /// An element of the scene with values for all keys of the table, of which one
  /// has another value.
  static std::string elementWith(const ElementTable& table, const std::string& otherKey,
                                 const std::string& value) {
    std::string xml = "<" + table.element + " " + otherKey + "='" + value + "'";
    for (const KeyText& key : table.keys) {
      if (key.name != otherKey) {
        xml += " " + key.name + "='" + goodValue(key) + "'";
      }
    }
    return xml + "/>";
  }
};

TEST_F(AllElements, RejectNewerVersions) {
  const std::set<std::string> notChildrenOfScenes = {"", "scene", "array", "font"};
  for (const ElementTable& table : describeSceneFormat()) {
    if (notChildrenOfScenes.contains(table.element)) {
      continue;
    }
    const int newest = table.element == "reflect" ? 2 : 1;
    const auto withVersion = [&](int version) {
      return failureOf([&] { read(elementWith(table, "version", std::to_string(version))); });
    };
    EXPECT_THAT(withVersion(newest), testing::Not(testing::HasSubstr("Version"))) << table.element;
    EXPECT_EQ(withVersion(newest + 1).substr(0, 31), "FutureVersionException:  | scen") << table.element;
  }
}

TEST_F(AllElements, NeverStopASceneWhenOptional) {
  for (const ElementTable& table : describeSceneFormat()) {
    for (const KeyText& key : table.keys) {
      if (table.onBadValue == OnBadValue::WARN) {
        EXPECT_EQ(failureOf([&] { read(elementWith(table, key.name, "?")); }), "")
            << key.name << " of " << table.element;
      }
    }
  }
}

}  // namespace

}  // namespace vemo
