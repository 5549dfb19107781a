#pragma once

#include <vemo/import/SceneConverter.h>

#include <string>

namespace vemo {

struct ExportRequest {
  /// The scene file to read.
  std::string file;
  std::string output;
  /// Whether to read the output back and compare it with what was to be written.
  bool verify = false;
  /// Receives what became of an archive, also when it is refused; may be empty.
  SceneConverter::LedgerObserver observeLedger{};
};

/// A kind of file that scenes of either generation can be written as. A new one
/// is a folder beside this file and a row in ExportFormat.cpp.
struct ExportFormat {
  /// Of file names, as ".sdb"; compared without regard to case.
  const char* ending;
  /// For help texts, as "scene-graph database".
  const char* description;
  /// Reads the scene file and writes the output, whole or not at all. Throws
  /// Failure, and the exceptions of the libraries.
  void (*write)(const ExportRequest& request);
};

/// The format whose ending the output's name has; the first, a scene-graph
/// database, for names with any other ending.
const ExportFormat& findExportFormat(const std::string& output);

/// All formats with their endings, for help texts.
std::string listExportFormats();

}  // namespace vemo
