#pragma once

#include "ExportRequest.h"
#include "OutputFile.h"

#include <string>

namespace vemo {

/// A kind of file that scenes of either generation can be written as. A new one
/// is a folder beside this file and a row in ExportFormat.cpp.
struct ExportFormat {
  FileKind kind;
  /// Reads the scene file and writes the output, whole or not at all. Throws
  /// Failure, and the exceptions of the libraries.
  void (*write)(const ExportRequest& request);
};

/// The format with the extension of the output's name; the first, a scene-graph
/// database, for names without an extension. Throws Failure with WRONG_USAGE for any
/// other extension.
const ExportFormat& findExportFormat(const std::string& output);

/// All formats with their extensions, for help texts.
std::string listExportFormats();

}  // namespace vemo
