// The tables of keys: what the page on the scene format says of them, and what
// holds for every element and key.

#include "SceneFixture.h"
#include "support/Expected.h"
#include "support/GraphText.h"
#include "vemoview/import/scene/SceneFormat.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <map>
#include <regex>
#include <set>
#include <utility>

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

TEST(SceneFormatPageTest, HasTheTablesOfKeysAndNoOther) {
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

class AllElementsTest : public SceneFixture {
 protected:
  AllElementsTest() { _archive.bytes("e", {}); }

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

TEST_F(AllElementsTest, RejectNewerVersions) {
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

TEST_F(AllElementsTest, NeverStopASceneWhenOptional) {
  for (const ElementTable& table : describeSceneFormat()) {
    for (const KeyText& key : table.keys) {
      if (table.onBadValue == OnBadValue::WARN) {
        EXPECT_EQ(failureOf([&] { read(elementWith(table, key.name, "?")); }), "")
            << key.name << " of " << table.element;
      }
    }
  }
}

/// Scenes that the keys of a table matter in, by its element and first key.
std::multimap<std::string, std::string> scenesOfTables() {
  std::ifstream lines(testData("scenes-of-keys.txt"));
  std::multimap<std::string, std::string> scenes;
  for (std::string table, scene; std::getline(lines, table, ':') && std::getline(lines, scene);) {
    scenes.emplace(table, scene);
  }
  return scenes;
}

/// Keys that are kept, or matter only where VTK draws an item.
const std::set<std::string> WITHOUT_EFFECT = {"view windowWidth", "view windowHeight", "view windowX",
                                              "view windowY",     "reflect flip",      "axes textColor",
                                              "axes xaxis",       "axes yaxis",        "axes zaxis"};

class DefaultsTest : public AllElementsTest {
 protected:
  DefaultsTest() {
    _archive.bytes("one", {7});
    _hasDefaults = false;
  }

  /// The key with this value, as an attribute or a child element.
  static std::pair<std::string, std::string> written(const KeyText& key, const std::string& value) {
    if (key.type != "vector" && key.type != "element") {
      return {" " + key.name + "='" + value + "'", ""};
    }
    return {"", "<" + key.name + " " + value + "/>"};
  }

  static std::string vectorOf(const std::string& numbers) {
    return std::regex_replace(numbers + ", 0", std::regex("^([^,]+), ([^,]+), ([^,]+).*"),
                              "x='$1' y='$2' z='$3'");
  }

  /// Nothing for a default that depends on other things.
  static std::optional<std::string> defaultValue(const KeyText& key) {
    static const std::set<std::string> WORDY = {"required", "none"};
    if (WORDY.contains(key.defaultText) || key.type == "element") {
      return std::nullopt;
    }
    if (key.defaultText == "empty") {
      return "";
    }
    if (key.type == "vector") {
      return std::regex_match(key.defaultText, std::regex("[-0-9., ]+"))
                 ? std::optional(vectorOf(key.defaultText))
                 : std::nullopt;
    }
    std::smatch quoted;
    if (std::regex_match(key.defaultText, quoted, std::regex("`([^`]*)`"))) {
      return quoted[1];
    }
    return key.defaultText.find(' ') == std::string::npos ? std::optional(key.defaultText) : std::nullopt;
  }

  /// One that is not the default.
  static std::string otherValue(const std::string& element, const KeyText& key) {
    static const std::map<std::string, std::string> BY_NAME = {
        {"points", "p"},   {"verts", "vert"},
        {"lines", "line"}, {"strips", "strip"},
        {"polys", "tri"},  {"data", "four"},
        {"pixels", "one"}, {"numberFormat", "%g"},
        {"nRepeats", "3"}, {"pointScalePixelsSize", "0"}};
    if (const auto found = BY_NAME.find(key.name); found != BY_NAME.end()) {
      return found->second;
    }
    if (key.type == "word") {
      // The second one, unless it is the default.
      std::smatch words;
      std::regex_search(key.meaning, words, std::regex("`([^`]*)`(?:, | or )`([^`]*)`"));
      return words[element == "image3d" ? 1 : 2];
    }
    static const std::map<std::string, std::string> BY_TYPE = {{"number", "0.5"},
                                                               {"integer", "1"},
                                                               {"text", "other"},
                                                               {"colour", "ff8000ff"},
                                                               {"vector", "x='0.5' y='0.25' z='0.75'"},
                                                               {"element", "textColor='ff8000ff'"}};
    return key.type == "boolean" ? (key.defaultText == "true" ? "false" : "true") : BY_TYPE.at(key.type);
  }

  /// What becomes of the scene with one key of the table of this value, or absent,
  /// with all others or alone.
  std::string resultOf(std::string scene, const ElementTable& table, const KeyText& tested,
                       const std::optional<std::string>& value, bool withOthers) {
    std::string attributes;
    std::string children;
    for (const KeyText& key : table.keys) {
      if (key.name == tested.name ? value.has_value() : withOthers) {
        const auto [attribute, child] =
            written(key, key.name == tested.name ? *value : otherValue(table.element, key));
        attributes += attribute;
        children += child;
      }
    }
    scene = std::regex_replace(scene, std::regex("@"), attributes);
    scene = std::regex_replace(scene, std::regex("#"), children);
    const std::string failure = failureOf([&] { convert(scene); });
    return failure.empty() ? graphText(*_sceneNode) : failure;
  }
};

TEST_F(DefaultsTest, AndEffectsAreThoseOfThePage) {
  const std::set<std::string> notConvertedHere = {"", "scene", "gradient"};
  const auto scenes = scenesOfTables();
  for (const ElementTable& table : describeSceneFormat()) {
    if (notConvertedHere.contains(table.element) || table.keys.empty()) {
      continue;
    }
    const auto [first, last] = scenes.equal_range(table.element + " " + table.keys.front().name);
    EXPECT_NE(first, last) << table.element << " " << table.keys.front().name << " needs a scene";
    for (const KeyText& key : table.keys) {
      const std::string name = table.element + " " + key.name;
      bool hasEffect = false;
      for (auto scene = first; scene != last; ++scene) {
        for (const bool withOthers : {true, false}) {
          const auto with = [&](const std::optional<std::string>& value) {
            return resultOf(scene->second, table, key, value, withOthers);
          };
          const std::string without = with(std::nullopt);
          if (const auto stated = defaultValue(key)) {
            EXPECT_EQ(with(*stated), without) << name;
          }
          hasEffect = hasEffect || with(otherValue(table.element, key)) != without;
        }
      }
      EXPECT_EQ(hasEffect, !WITHOUT_EFFECT.contains(name)) << name;
    }
  }
}

}  // namespace

}  // namespace vemo
