#pragma once

#include <bitset>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vemo {

/// VTK draws nothing for the characters beyond, whatever the font.
inline constexpr char32_t LAST_DRAWN = 0xFFFF;

/// The characters up to LAST_DRAWN that a font has.
using FontCharacters = std::bitset<LAST_DRAWN + 1>;

/// The fonts of this computer as they are when they are first looked at.
class InstalledFonts {
 public:
  InstalledFonts();
  ~InstalledFonts();

  /// Sorted within each folder: below the folders that the environment variable
  /// VEMO_FONT_PATH lists, with ":" between them, then below those where systems and
  /// users have their fonts.
  const std::vector<std::string>& getFiles() const { return _files; }

  /// Null for a file that is not a font.
  const FontCharacters* findCharacters(const std::string& file);

 private:
  class Reader;

  std::vector<std::string> _files;
  std::unique_ptr<const Reader> _reader;
  /// Of the files that have been read.
  std::map<std::string, std::unique_ptr<const FontCharacters>> _characters;
};

}  // namespace vemo
