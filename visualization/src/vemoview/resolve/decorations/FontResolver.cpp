#include "vemoview/resolve/decorations/FontResolver.h"

#include "vemoview/resolve/decorations/InstalledFonts.h"
#include "vemoview/resolve/values/ReadableText.h"
#include <vemo/scenegraph/Findings.h>

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>
#include <set>
#include <utility>

namespace vemo {

namespace {

using Characters = std::set<char32_t>;

/// What VTK's built-in fonts have in every face and style.
bool isBuiltIn(char32_t character) {
  constexpr char32_t LAST_OF_LATIN_1 = 0xFF;
  return character <= LAST_OF_LATIN_1 && !isLateControl(character);
}

Characters foreignOf(std::initializer_list<std::string_view> texts) {
  Characters result;
  for (const std::string_view text : texts) {
    for (const char32_t character : charactersOf(text)) {
      if (!isBuiltIn(character)) {
        result.insert(character);
      }
    }
  }
  return result;
}

/// Scripts that VTK cannot write: from right to left, or with letters that are joined,
/// reordered or stacked. Those beyond LAST_DRAWN are reported as missing.
bool needsShaping(char32_t character) {
  constexpr std::pair<char32_t, char32_t> RANGES[] = {
      {0x0590, 0x109F},  // Hebrew, Arabic, the scripts of India and South-East Asia
      {0x1780, 0x18AF},  // Khmer, Mongolian
      {0x1A00, 0x1BFF},  // Buginese, Tai Tham, Balinese, Sundanese, Batak
      {0xA800, 0xA82F},  // Syloti Nagri
      {0xA880, 0xA8FF},  // Saurashtra, additions to Devanagari
      {0xA930, 0xAAFF},  // Rejang, Javanese, Cham, additions to Myanmar
      {0xABC0, 0xABFF},  // Meetei
      {0xFB1D, 0xFDFF},  // Forms of Hebrew and Arabic letters
      {0xFE70, 0xFEFE}};
  return std::ranges::any_of(
      RANGES, [=](const auto& range) { return range.first <= character && character <= range.second; });
}

Characters missingIn(const FontCharacters& font, const Characters& wanted) {
  Characters missing;
  for (const char32_t character : wanted) {
    if (character > LAST_DRAWN || !font[character]) {
      missing.insert(character);
    }
  }
  return missing;
}

/// The names of files that are most like the style, the best first.
std::vector<std::string> namesLike(const TextStyle& style) {
  using Family = TextStyle::Family;
  const std::string family = style.family == Family::COURIER ? "SansMono"
                             : style.family == Family::TIMES ? "Serif"
                                                             : "Sans";
  const std::string slanted = style.family == Family::TIMES ? "Italic" : "Oblique";
  std::vector<std::string> names;
  const auto add = [&](const std::string& name) { names.push_back("/DejaVu" + name + ".ttf"); };
  if (style.isItalic) {
    add(family + "-" + (style.isBold ? "Bold" : "") + slanted);
  }
  if (style.isBold) {
    add(family + "-Bold");
  }
  add(family);
  // Of these fonts it has the most characters.
  add("Sans");
  return names;
}

bool hasWeightAndSlantOf(const TextStyle& style, const std::string& file) {
  const auto contains = [&file](const char* word) { return file.find(word) != std::string::npos; };
  return contains("Bold") == style.isBold && (contains("Italic") || contains("Oblique")) == style.isItalic;
}

/// The files in the order in which they are tried.
std::vector<std::string> sortByLikeness(std::vector<std::string> files, const TextStyle& style) {
  // There may be thousands, and all of them lack a character.
  constexpr std::ptrdiff_t MAX_OTHERS = 100;
  auto next = files.begin();
  for (const std::string& name : namesLike(style)) {
    const auto found =
        std::find_if(next, files.end(), [&name](const auto& file) { return file.ends_with(name); });
    if (found != files.end()) {
      std::rotate(next, found, found + 1);
      ++next;
    }
  }
  std::stable_partition(next, files.end(),
                        [&style](const auto& file) { return hasWeightAndSlantOf(style, file); });
  if (files.end() - next > MAX_OTHERS) {
    files.erase(next + MAX_OTHERS, files.end());
  }
  return files;
}

void reportMissing(const Characters& missing, const std::string& owner, bool hasFonts) {
  const auto firstUndrawn = missing.upper_bound(LAST_DRAWN);
  const auto report = [&owner](auto first, auto last, const char* reason) {
    std::string list;
    for (auto character = first; character != last; ++character) {
      list += fmt::format("{}U+{:04X}", list.empty() ? "" : ", ", static_cast<std::uint32_t>(*character));
    }
    if (!list.empty()) {
      reportFinding(FindingCode::GLYPH_MISSING, owner + " has characters " + reason + ": " + list);
    }
  };
  report(missing.begin(), firstUndrawn,
         hasFonts ? "that no installed font has together with its others"
                  : "that need a font, but none is installed");
  report(firstUndrawn, missing.end(), "beyond U+FFFF, which are not drawn");
}

}  // namespace

FontResolver::FontResolver() = default;
FontResolver::~FontResolver() = default;

std::string FontResolver::resolve(const TextStyle& style, std::initializer_list<std::string_view> texts,
                                  const std::string& owner) {
  Characters missing = foreignOf(texts);
  if (missing.empty()) {
    return {};
  }
  if (std::ranges::any_of(missing, needsShaping)) {
    reportFinding(FindingCode::TEXT_NOT_SHAPED,
                  owner + " is drawn from left to right, letter by letter, which is wrong for its script");
  }
  const Characters wanted = missing;
  std::string best;
  InstalledFonts& fonts = installedFonts();
  for (const std::string& file : filesLike(style)) {
    if (missing.empty()) {
      break;
    }
    const FontCharacters* const font = fonts.findCharacters(file);
    if (font == nullptr) {
      continue;
    }
    Characters left = missingIn(*font, wanted);
    if (left.size() < missing.size()) {
      missing = std::move(left);
      best = file;
    }
  }
  if (!missing.empty()) {
    reportMissing(missing, owner, !fonts.getFiles().empty());
  }
  return best;
}

InstalledFonts& FontResolver::installedFonts() {
  if (_fonts == nullptr) {
    _fonts = std::make_unique<InstalledFonts>();
  }
  return *_fonts;
}

const std::vector<std::string>& FontResolver::filesLike(const TextStyle& style) {
  const auto [known, isNew] = _files.try_emplace({style.family, style.isBold, style.isItalic});
  if (isNew) {
    known->second = sortByLikeness(installedFonts().getFiles(), style);
  }
  return known->second;
}

}  // namespace vemo
