#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace vemo {

/// A new, empty folder for one test; the destructor deletes it with its content.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vemo-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("cannot make the folder " + name);
    }
    _path = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(_path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return _path; }

  /// The path of a file in the folder; does not make the file.
  std::filesystem::path operator/(const std::filesystem::path& name) const { return _path / name; }

 private:
  std::filesystem::path _path;
};

/// Makes a folder the working folder for the life of the object, also when a test throws.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::filesystem::path& folder) { std::filesystem::current_path(folder); }
  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::current_path(_former, ignored);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path _former = std::filesystem::current_path();
};

}  // namespace vemo
