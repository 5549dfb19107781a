#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace vemo {

/// A kind of file that a command writes.
struct FileKind {
  /// Of file names, as ".sdb"; compared without regard to case.
  const char* extension;
  /// For messages, as "scene-graph database".
  const char* description;
  /// What files of the kind begin with.
  std::string_view start;
  /// Whether it is written from beginning to end, as pipes and devices require.
  bool isSequential;
};

/// Whether a name has the extension of a kind of file.
bool hasExtension(const std::string& output, const FileKind& kind);

/// Throws Failure with WRONG_USAGE if a name has an extension; a name without one is
/// good for any kind of file.
/// @param kinds the descriptions and extensions of those that can be written
void rejectOtherExtension(const std::string& output, const std::string& kinds);

/// "-", or a name that the system has for standard output.
bool isStandardOutput(const std::string& output);

/// Checks that the output can be written and, unless `force`, that it will not
/// replace a file of another kind. Comes before the work, so that nobody waits for a
/// result that cannot be written. Throws Failure with CANNOT_WRITE, or FileWriteError.
///
/// From then on, signals that end the process also remove its temporary files.
void checkOutput(const std::string& output, const FileKind& kind, bool force);

/// Throws Failure with CANNOT_WRITE.
void copyToStandardOutput(const std::filesystem::path& file);

}  // namespace vemo
