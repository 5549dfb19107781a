#include "vemoview/resolve/decorations/InstalledFonts.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>

namespace vemo {

namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::vector<fs::path> fontFolders() {
  std::vector<fs::path> folders;
  std::istringstream listed(environment("VEMO_FONT_PATH"));
  for (std::string folder; std::getline(listed, folder, ':');) {
    folders.emplace_back(folder);
  }
  folders.insert(folders.end(), {"/usr/share/fonts", "/usr/local/share/fonts"});
  if (const std::string home = environment("HOME"); !home.empty()) {
    folders.insert(folders.end(), {fs::path(home) / ".local/share/fonts", fs::path(home) / ".fonts"});
  }
  return folders;
}

bool isFont(const fs::path& file) {
  const std::string extension = file.extension();
  return extension == ".ttf" || extension == ".otf" || extension == ".ttc";
}

std::vector<std::string> findFontFiles() {
  std::vector<std::string> files;
  for (const fs::path& folder : fontFolders()) {
    const auto first = static_cast<std::ptrdiff_t>(files.size());
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
      // Opening a pipe would block until there is a writer.
      std::error_code ignored;
      if (isFont(entry->path()) && entry->is_regular_file(ignored)) {
        files.push_back(entry->path());
      }
    }
    std::sort(files.begin() + first, files.end());
  }
  return files;
}

}  // namespace

class InstalledFonts::Reader {
 public:
  Reader() : _isOpen(FT_Init_FreeType(&_library) == 0) {}
  ~Reader() {
    if (_isOpen) {
      FT_Done_FreeType(_library);
    }
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  std::unique_ptr<const FontCharacters> read(const std::string& file) const {
    FT_Face face = nullptr;
    if (!_isOpen || FT_New_Face(_library, file.c_str(), 0, &face) != 0) {
      return nullptr;
    }
    auto characters = std::make_unique<FontCharacters>();
    FT_UInt glyph = 0;
    for (FT_ULong character = FT_Get_First_Char(face, &glyph); glyph != 0 && character <= LAST_DRAWN;
         character = FT_Get_Next_Char(face, character, &glyph)) {
      characters->set(character);
    }
    FT_Done_Face(face);
    return characters;
  }

 private:
  FT_Library _library = nullptr;
  bool _isOpen;
};

InstalledFonts::InstalledFonts() : _files(findFontFiles()), _reader(std::make_unique<const Reader>()) {}
InstalledFonts::~InstalledFonts() = default;

const FontCharacters* InstalledFonts::findCharacters(const std::string& file) {
  const auto [known, isNew] = _characters.try_emplace(file);
  if (isNew) {
    known->second = _reader->read(file);
  }
  return known->second.get();
}

}  // namespace vemo
