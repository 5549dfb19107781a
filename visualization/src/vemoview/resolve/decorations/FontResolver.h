#pragma once

#include <vemo/resolve/Decoration.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace vemo {

class InstalledFonts;

/// Chooses the fonts of texts that are resolved together. It keeps what it has learnt of the
/// installed fonts, so that none is looked at for each text; what is installed later needs
/// another one.
class FontResolver {
 public:
  FontResolver();
  ~FontResolver();

  /// The file of a font for readable texts, like the style's: empty where the
  /// built-in fonts have all their characters, or no file has more of them. A finding
  /// names the owner of the texts, and the characters that no font has.
  std::string resolve(const TextStyle& style, std::initializer_list<std::string_view> texts,
                      const std::string& owner);

 private:
  InstalledFonts& installedFonts();
  /// In the order in which they are tried.
  const std::vector<std::string>& filesLike(const TextStyle& style);

  /// Null until a text needs them.
  std::unique_ptr<InstalledFonts> _fonts;
  /// By family, whether bold, and whether italic.
  std::map<std::tuple<TextStyle::Family, bool, bool>, std::vector<std::string>> _files;
};

}  // namespace vemo
