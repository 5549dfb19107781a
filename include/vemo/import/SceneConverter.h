#pragma once

#include <vemo/base/Progress.h>
#include <vemo/import/Export.h>

#include <functional>
#include <string>

namespace lum {
class SceneNode;
}

namespace vemo {

class SceneImport;
class SceneLedger;

/// Turns an old scene file into a scene-graph database.
class VEMO_IMPORT_EXPORT SceneConverter {
 public:
  /// What the only record of the output is called.
  static constexpr const char* RECORD_TITLE = "title";
  static constexpr const char* RECORD_DESCRIPTION = "description";
  static constexpr const char* RECORD_SIM_UUID = "simUUID";

  SceneConverter(const std::wstring& inputPath, const std::wstring& outputPath);

  /// Reads the input, converts it and writes the output. An archive that
  /// carries a scene graph of its own is passed through, any other is converted
  /// item by item.
  ///
  /// Failures to read or convert are thrown: the module's exceptions, and
  /// InternalError. An output that cannot be written is only logged and passed to
  /// the write failure observer; the file is then missing or unchanged.
  void run() const;

  /// Called by `run`, which then throws Cancelled when the host says so; the output
  /// is missing or unchanged then.
  void setProgress(ProgressReport report);

  /// Called at the end of `run` with the cause if the output could not be written.
  /// Exceptions from this, the verifier and the other observer are passed on by `run`.
  using WriteFailureObserver = std::function<void(const std::string& cause)>;
  void setWriteFailureObserver(WriteFailureObserver observer);

  /// Called by `run` with the scene node that was written and a path at which this process can
  /// read the finished file, before that is moved into place: if it throws, the output is
  /// missing or unchanged.
  using Verifier = std::function<void(lum::SceneNode& written, const std::wstring& temporaryPath)>;
  void setVerifier(Verifier verifier);

  /// Called at the end of `run` with what became of the input. If reading or
  /// converting fails, it is called with what is known by then, before the
  /// failure is thrown. A scene whose output cannot be written has no ledger.
  using LedgerObserver = std::function<void(const SceneLedger& ledger)>;
  void setLedgerObserver(LedgerObserver observer);

 private:
  /// Null when that failed, which is only possible with a ledger observer.
  lum::SceneNode* readAndConvert(SceneImport& import) const;
  void reportWriteFailure(const std::string& cause) const;

  std::wstring _inputPath;
  std::wstring _outputPath;
  ProgressReport _progress;
  WriteFailureObserver _writeFailureObserver;
  Verifier _verifier;
  LedgerObserver _ledgerObserver;
};

}  // namespace vemo
