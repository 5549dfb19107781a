#pragma once

#include <filesystem>
#include <vector>

namespace vemo::OS {

/// Who may use a file besides its permission bits: its POSIX access list, which not every file and
/// not every file system has. With a list, the bits of the group are the limit of all that it gives,
/// so that they say something else without it.
class AccessList {
 public:
  /// Returns 0, or an error number. A link is not followed.
  int readFrom(const std::filesystem::path& file);

  /// Gives an open file this list, and takes its own away. Returns 0, or an error number.
  int writeTo(int file) const;

 private:
  /// As the system stores it; empty without a list.
  std::vector<char> _bytes;
};

}  // namespace vemo::OS
