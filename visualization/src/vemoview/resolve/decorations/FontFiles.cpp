#include "vemoview/resolve/decorations/FontFiles.h"

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

}  // namespace

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

}  // namespace vemo
