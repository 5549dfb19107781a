#pragma once

#include <vemo/base/WidePath.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace vemo {

inline std::wstring wide(const std::filesystem::path& path) {
  return toWidePath(path.native());
}

inline std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
  // Some file systems wait for the disk when a file is truncated and rewritten.
  std::filesystem::remove(path);
  std::ofstream(path, std::ios::binary) << bytes;
}

inline auto countFiles(const std::filesystem::path& folder) {
  return std::distance(std::filesystem::directory_iterator(folder), {});
}

}  // namespace vemo
