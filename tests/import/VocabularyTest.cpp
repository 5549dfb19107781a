// The page on the scene format names every key that the items know, and no
// other.

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace vemo {

namespace {

using Words = std::set<std::string>;

const std::filesystem::path SOURCES = VEMO_SOURCE_FOLDER;

std::string textOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::smatch> allOf(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

Words wordsOf(const std::string& text, const std::regex& pattern) {
  Words words;
  for (const std::smatch& match : allOf(text, pattern)) {
    words.insert(match[1]);
  }
  words.erase("");
  return words;
}

/// The string constants of one class: element names in `kinds`, attributes and
/// children in `keys`, what stands in name tables in `words`.
struct Vocabulary {
  Words kinds;
  Words keys;
  Words words;
};

/// By class. Every item declares its constants in its header.
std::map<std::string, Vocabulary> readHeaders() {
  const std::regex declaration(R"(\n( *)class (?:VEMO_IMPORT_EXPORT )?(\w+)[^;{]*\{|\n  \};|)"
                               R"(static inline const std::string (\w+)(?:\[\d*\])?\s*=([^;]*);)");
  const std::regex literal("\"([^\"]*)\"");
  std::map<std::string, Vocabulary> classes;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCES / "include/vemo/import")) {
    if (entry.path().extension() != ".h") {
      continue;
    }
    const std::string header = textOf(entry.path());
    std::string outer;
    std::string current;
    for (const std::smatch& match : allOf(header, declaration)) {
      if (!match[3].matched) {
        // A class begins, or one inside another ends.
        current = match[2].matched ? match[2].str() : outer;
        outer = match[1].length() == 0 ? current : outer;
        continue;
      }
      const std::string name = match[3];
      Vocabulary& vocabulary = classes[current];
      Words& target = name == "XML_ENTITY"       ? vocabulary.kinds
                      : name.starts_with("XML_") ? vocabulary.keys
                                                 : vocabulary.words;
      target.merge(wordsOf(match[4], literal));
    }
  }
  return classes;
}

/// The sections of the page by the words that their headings quote; all else
/// stands under the empty word.
std::map<std::string, std::string> readPage() {
  std::map<std::string, std::string> sections;
  std::ifstream page(SOURCES / "docs/user/scene-format.md");
  Words headings = {""};
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) {
      headings = wordsOf(line, std::regex("`([^`]*)`"));
      if (headings.empty()) {
        headings = {""};
      }
    }
    for (const std::string& heading : headings) {
      sections[heading] += line + "\n";
    }
  }
  return sections;
}

const std::regex QUOTED("`([^`]*)`");
const std::regex KEY_OF_ROW("(?:^|\n)\\| `([^`]*)`");

TEST(SceneFormatPage, NamesEveryWordOfEveryItem) {
  const auto classes = readHeaders();
  const auto sections = readPage();
  ASSERT_GT(classes.size(), 20U);
  std::size_t checked = 0;
  for (const auto& [name, vocabulary] : classes) {
    // What belongs to all items, and to both images, has no element of its own.
    Words kinds = vocabulary.kinds;
    if (kinds.empty()) {
      kinds = {name == "Image" ? "image2d" : ""};
    }
    for (const std::string& kind : kinds) {
      ASSERT_TRUE(sections.contains(kind)) << "no section on " << kind;
      const std::string& section = sections.at(kind);
      const Words keys = wordsOf(section, KEY_OF_ROW);
      const Words words = wordsOf(section, QUOTED);
      for (const std::string& key : vocabulary.keys) {
        EXPECT_TRUE(keys.contains(key)) << key << " of " << name;
        ++checked;
      }
      for (const std::string& word : vocabulary.words) {
        EXPECT_TRUE(words.contains(word)) << word << " of " << name;
      }
    }
  }
  EXPECT_GT(checked, 90U);
}

TEST(SceneFormatPage, NamesNoKeyThatIsNotThere) {
  Words known;
  for (const auto& [name, vocabulary] : readHeaders()) {
    known.insert(vocabulary.keys.begin(), vocabulary.keys.end());
    known.insert(vocabulary.kinds.begin(), vocabulary.kinds.end());
  }
  for (const std::string& key : wordsOf(textOf(SOURCES / "docs/user/scene-format.md"), KEY_OF_ROW)) {
    EXPECT_TRUE(known.contains(key)) << key;
  }
}

TEST(SceneFormatPage, TellsTypeAndEffectOfEveryKey) {
  const std::string page = textOf(SOURCES / "docs/user/scene-format.md");
  const std::regex whole("\n\\| `[^|]+ \\| [^|]+ \\| [^|]*\\| [^|]+ \\|(?=\n)");
  EXPECT_EQ(allOf(page, whole).size(), allOf(page, KEY_OF_ROW).size());
}

}  // namespace

}  // namespace vemo
