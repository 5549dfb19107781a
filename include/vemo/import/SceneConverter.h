#pragma once

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
  SceneConverter(const std::wstring& inputPath, const std::wstring& outputPath);

  /// Reads the input, converts it and writes the output. An archive that
  /// carries a scene graph of its own is passed through, any other is converted
  /// item by item.
  ///
  /// Failures to read or convert are thrown: the module's exceptions, and
  /// InternalError. An output that cannot be written is only logged; the file
  /// is then missing or unchanged.
  void run() const;

  /// Called by `run` with the scene node that was written, before the node is
  /// destroyed. Exceptions from it are passed on by `run`.
  using Observer = std::function<void(lum::SceneNode& written)>;
  void setObserver(Observer observer);

  /// Called at the end of `run` with what became of the input. If reading or
  /// converting fails, it is called with what is known by then, before the
  /// failure is thrown. A scene whose output cannot be written has no ledger.
  using LedgerObserver = std::function<void(const SceneLedger& ledger)>;
  void setLedgerObserver(LedgerObserver observer);

 private:
  /// Null when that failed, which is only possible with a ledger observer.
  lum::SceneNode* readAndConvert(SceneImport& import) const;
  /// False when the output cannot be opened.
  bool write(lum::SceneNode& sceneNode) const;

  std::wstring _inputPath;
  std::wstring _outputPath;
  Observer _observer;
  LedgerObserver _ledgerObserver;
};

}  // namespace vemo
