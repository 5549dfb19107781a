#pragma once

#include <vemo/base/Progress.h>
#include <vemo/import/SceneConverter.h>

#include <string>

namespace vemo {

struct ExportRequest {
  /// The scene file to read.
  std::string file;
  std::string output;
  /// Whether to read the output back and compare it with what was to be written.
  bool verify = false;
  ProgressReport progress{};
  /// Receives the ledger of an archive, even if the archive is refused; may be
  /// empty.
  SceneConverter::LedgerObserver observeLedger{};
};

}  // namespace vemo
