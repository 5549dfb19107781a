#pragma once

#include <string>

namespace vemo {

/// Throws Failure with READ_ERROR for a pipe: opening it would wait for somebody
/// to write, and no scene can be read from it.
void refusePipe(const std::string& file);

/// Throws Failure with WRONG_USAGE when both are the same file: writing the
/// result would destroy what it is made from.
void refuseSameFile(const std::string& file, const std::string& output);

/// Tells whether a file was replaced. Keeps what was there before open, so that
/// the system cannot give its number to the new file.
class ReplacementWatch {
 public:
  explicit ReplacementWatch(const std::string& path);
  ~ReplacementWatch();
  ReplacementWatch(const ReplacementWatch&) = delete;
  ReplacementWatch& operator=(const ReplacementWatch&) = delete;

  /// Whether another file, or one for the first time, stands there now.
  bool isReplaced() const;

 private:
  std::string _path;
  int _former;
};

}  // namespace vemo
