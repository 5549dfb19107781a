#pragma once

#include <string>

namespace vemo {

/// Throws Failure with READ_ERROR for a pipe: opening it would wait for a
/// writer, and reading a scene needs seeking.
void rejectPipe(const std::string& file);

/// Throws Failure with WRONG_USAGE when both are the same file: writing the
/// output would destroy the input.
void rejectSameFile(const std::string& file, const std::string& output);

enum class SceneKind { ARCHIVE, DATABASE };

/// The generation of the file. Throws Failure for a file that does not exist,
/// cannot be opened, or is of neither generation.
SceneKind detectScene(const std::string& file);

/// Throws Failure with UNSUPPORTED_FORMAT for a database: only archives of the
/// old generation have what the command needs.
void requireArchive(const std::string& file);

/// Detects whether a file was replaced. Keeps the former file open, so that the
/// system cannot reuse its inode number.
class ReplacementWatch {
 public:
  explicit ReplacementWatch(const std::string& path);
  ~ReplacementWatch();
  ReplacementWatch(const ReplacementWatch&) = delete;
  ReplacementWatch& operator=(const ReplacementWatch&) = delete;

  /// Whether the path now leads to another file, or to one for the first time.
  bool isReplaced() const;

 private:
  std::string _path;
  int _former;
};

}  // namespace vemo
