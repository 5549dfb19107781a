#pragma once

#include <filesystem>
#include <system_error>

namespace vemo {

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
