#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace lum::io {

/// A file that appears in its place whole or not at all. What is written goes
/// to a temporary file beside the target; `commit` moves it there. All failures
/// are FileError (WriteError) with the system's reason. Texts of errors name
/// the target.
class OutputFile {
 public:
  /// Links are followed: what they point at is the target. A target that is no
  /// regular file is refused, and any that exists if `keepExisting`.
  OutputFile(const std::string& path, bool keepExisting);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  /// Removes what is not committed.
  ~OutputFile();

  void write(const void* data, std::size_t size);
  void fill(std::size_t size);

  /// Writes over the beginning of the file.
  void writeFirst(const std::string& bytes);

  /// How much was written.
  std::uint64_t getPosition() const { return _written + _buffer.size(); }

  void commit();

 private:
  void inspectTarget();
  void makeTemporary();
  void flush();
  void writeNow(const char* data, std::size_t size, std::uint64_t position) const;
  void syncFolder() const;
  [[noreturn]] void fail(int error) const;

  std::string _target;
  std::string _folder;
  std::string _temporary;
  std::string _buffer;
  std::uint64_t _written = 0;
  unsigned _permissions = 0;
  bool _hasTarget = false;
  bool _keepExisting;
  int _file = -1;
};

}  // namespace lum::io
