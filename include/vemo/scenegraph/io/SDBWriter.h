#pragma once

#include <vemo/base/Progress.h>
#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/io/FileIoStatus.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace lum {

class Node;

/// Writes a scene-graph database to a temporary file in the target's folder, which
/// `close` moves into place: other programs see the old
/// file or the complete new one. A writer destroyed without `close` leaves nothing
/// behind.
///
/// Failures are returned as statuses, and their cause is logged. After a failure
/// `close` discards the file.
class VEMO_SCENEGRAPH_EXPORT SDBWriter {
 public:
  /// The first bytes of every database.
  static constexpr std::string_view SIGNATURE = R"({"format": "scene-graph database")";

  SDBWriter();
  SDBWriter(const SDBWriter&) = delete;
  SDBWriter& operator=(const SDBWriter&) = delete;
  virtual ~SDBWriter();

  /// Starts a database; what was open before is discarded.
  ///
  /// `append`: keeps the records of an existing database, before the new ones.
  /// `keepExisting`: an existing file is rejected, now and when the
  /// new one would be moved into its place.
  ///
  /// An existing target keeps its owner and permissions; a link remains, and its target is
  /// written; anything but a regular file is refused.
  io::FileIoStatus open(const std::wstring& path, bool append, bool keepExisting);

  /// From now until `close`, which reports the end, the members report progress
  /// and throw Cancelled when the host says so. `close` discards the file then.
  /// @param expectedBytes roughly, of the arrays that will be written
  void setProgress(vemo::ProgressReport report, std::uint64_t expectedBytes);

  /// Called by `close` with a path at which this process can read the finished file, before that
  /// is moved into place. `close` passes on what it throws; the file is discarded then. In force until
  /// the next `open`.
  using Verifier = std::function<void(const std::wstring& temporaryPath)>;
  void setVerifier(Verifier verifier);

  /// Writes one record: a node and all that it owns. `recordNumber` receives
  /// its number, from 0 on; it is untouched on failure.
  io::FileIoStatus addRecord(const std::string& title, const std::string& description,
                             const std::string& simUUID, Node& node, int& recordNumber);

  /// Finishes the database and moves it into place. WriteError, with the target
  /// unchanged, when anything failed since `open` or nothing is open.
  io::FileIoStatus close();

  /// The cause of the first failure since `open`, as it was logged; empty without any.
  const std::string& getFailure() const { return _failure; }

 private:
  template <class Operation>
  io::FileIoStatus run(Operation&& operation);

  class Database;
  std::unique_ptr<Database> _database;
  std::string _failure;
  vemo::ProgressMeter _progress;
  Verifier _verifier;
};

}  // namespace lum
