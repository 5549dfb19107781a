#pragma once

#include <vemo/base/Progress.h>
#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/Ptr.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lum {

class ArrayPool;
class Node;

/// Reads a scene-graph database. All failures are io::FileError, with a status
/// and a text that names file and cause; damaged files are never read in part.
///
/// Files of later versions may hold unknown parts: an unknown field is ignored;
/// a node of an unknown class is left out with all that it owns. Both are findings,
/// one for each class that nodes have. A field that the file does not have keeps
/// its default. Arrays that no node has are a finding once all records were read or checked, unless
/// unknown parts may have them.
class VEMO_SCENEGRAPH_EXPORT SDBReader {
 public:
  struct Record {
    std::string title;
    std::string description;
    std::string simUUID;
  };

  /// One array of the file: position and size in bytes.
  struct Array {
    std::uint64_t offset;
    std::uint64_t bytes;
    std::string name;
  };

  /// Opens a database and reads its header and index. NotFound,
  /// UnsupportedFormat (not a database, or a later version) or ReadError.
  explicit SDBReader(const std::wstring& path);
  /// The same for a seekable stream, from its position to its end; it must outlive the
  /// reader.
  explicit SDBReader(std::istream& in);
  SDBReader(const SDBReader&) = delete;
  SDBReader& operator=(const SDBReader&) = delete;
  ~SDBReader();

  /// The other members report progress from now on, over all of the file, and throw
  /// Cancelled when the host says so.
  void setProgress(vemo::ProgressReport report);

  const std::vector<Record>& getRecords() const { return _records; }
  std::vector<Array> getArrays() const;

  /// Whether a node gets its arrays, which are numbered as those of getArrays.
  using ArrayFilter = std::function<bool(Node& node, std::span<const std::size_t> arrays)>;
  /// From now on readNode reads only the arrays that are wanted. Before it reads any, it asks
  /// for each node that has arrays, in the order of the file; the node has its owner and
  /// its other values by then. A node whose arrays are not wanted stays without.
  void setArrayFilter(ArrayFilter filter);

  /// Decodes a record's node with all that it owns, arrays included, in the
  /// given session or in none. The caller owns it. Arrays are shared with the
  /// pool, if there is one, and with other records of the file, whose reader keeps those of
  /// the latest: arrays of a file with several records must not be changed.
  Ptr<Node> readNode(std::size_t record, int sessionId = NO_SESSION, ArrayPool* pool = nullptr);

  /// Takes what is wrong, in words that name the file.
  using FaultSink = std::function<void(const std::string& fault)>;
  /// Reads a record as readNode does, but goes on after faults; null unless all of it is sound. A
  /// damaged array is reported for one of the records that have it.
  Ptr<Node> checkRecord(std::size_t record, const FaultSink& report);

  /// The numbers of the arrays that no record has of those that were read or checked so far.
  std::vector<std::size_t> getUnusedArrays() const;

  /// Reads one array and checks it against its hash; throws like readNode.
  void checkArray(std::size_t array);

 private:
  class Database;
  void listRecords();

  /// For errors.
  std::string _path;
  std::unique_ptr<Database> _database;
  std::vector<Record> _records;
};

}  // namespace lum
