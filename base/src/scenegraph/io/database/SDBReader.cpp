#include "base/Utf8.h"
#include "scenegraph/io/codec/ArrayBinder.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/GraphDecoder.h"
#include "scenegraph/io/codec/UnknownParts.h"
#include "scenegraph/io/database/DatabaseFormat.h"
#include "scenegraph/io/database/HostCall.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <vtkWeakPointer.h>

#include <algorithm>
#include <cerrno>
#include <fmt/format.h>
#include <fstream>
#include <set>
#include <sys/stat.h>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace lum {

namespace {

/// What the nodes of all records together may have of arrays: those that many of them share
/// take time for each, and no bytes of the file.
constexpr std::uint64_t ARRAY_BYTES = std::uint64_t{2} << 30U;
constexpr std::uint64_t ARRAY_BYTES_PER_BYTE = 1000;

[[noreturn]] void failToOpen(int error) {
  const std::string cause = std::generic_category().message(error);
  if (io::openingStatus(error) == io::FileIoStatus::NotFound) {
    throw io::FileError(io::FileIoStatus::NotFound, cause);
  }
  throw io::UnreadableFile(cause, error);
}

/// Opens a regular file: opening a pipe would block.
std::ifstream openFile(const std::string& path) {
  // The system would take the path up to the zero.
  if (path.find('\0') != std::string::npos) {
    failToOpen(ENOENT);
  }
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    failToOpen(errno);
  }
  if (!S_ISREG(status.st_mode)) {
    throw io::UnreadableFile("It is not a regular file", 0);
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    failToOpen(errno);
  }
  return file;
}

void requireBelow(std::size_t count, std::size_t number, const char* what) {
  if (number >= count) {
    throw io::FileError(io::FileIoStatus::ReadError,
                        fmt::format("There is no number {}: the file has {} {}", number, count, what));
  }
}

/// Calls a function; errors name the file and the place in it, which another
/// function describes.
template <class Describe, class Action>
auto at(Describe&& describeContext, Action&& action) {
  try {
    return action();
  } catch (const io::UnreadableFile& error) {
    throw io::UnreadableFile(fmt::format("{}: {}", describeContext(), error.what()), error.getError());
  } catch (const io::FileError& error) {
    throw io::FileError(error.getStatus(), fmt::format("{}: {}", describeContext(), error.what()));
  }
}

}  // namespace

class SDBReader::Database {
 public:
  explicit Database(const std::string& path) : Database(openFile(path), nullptr) {}
  explicit Database(std::istream& in) : Database({}, &in) {}

  const io::DatabaseIndex& getIndex() const { return _index; }

  void setProgress(vemo::ProgressReport report) {
    _progress = vemo::ProgressMeter(std::move(report));
    _progress.startPhase(1, _source.getSize());
  }

  void setArrayFilter(ArrayFilter filter) { _arrayFilter = std::move(filter); }

  Ptr<Node> readNode(std::size_t record, int sessionId, ArrayPool* pool) {
    io::ArrayBinder binder;
    const Ptr<Node> root = decode(record, binder, sessionId);
    noteUses(record, binder);
    if (_arrayFilter) {
      binder.filter([this](Node& node, std::span<const std::size_t> chunks) {
        return io::callHost([&] { return _arrayFilter(node, chunks); });
      });
    }
    countArrays(record, binder);
    const std::vector<std::size_t> expected = binder.getExpected();
    keepOnly(expected);
    for (const std::size_t chunk : expected) {
      const std::string fault = binder.provide(chunk, *readChunk(chunk, pool));
      if (!fault.empty()) {
        throw io::FileError(io::FileIoStatus::ReadError, fault);
      }
    }
    return root;
  }

  Ptr<Node> checkRecord(std::size_t record, const FaultSink& report) {
    io::ArrayBinder binder;
    const Ptr<Node> root = decode(record, binder, NO_SESSION);
    noteUses(record, binder);
    countArrays(record, binder);
    bool isSound = true;
    const std::vector<std::size_t> expected = binder.getExpected();
    keepOnly(expected);
    for (const std::size_t chunk : expected) {
      const vtkSmartPointer<vtkDataArray> array = tryToReadChunk(chunk, report);
      const std::string fault = array != nullptr ? binder.provide(chunk, *array) : std::string();
      if (!fault.empty()) {
        report(fmt::format("Record {}: {}", record, fault));
      }
      isSound = isSound && array != nullptr && fault.empty();
    }
    return isSound ? root : nullptr;
  }

  std::vector<std::size_t> getUnused() const {
    std::vector<std::size_t> unused;
    for (std::size_t i = 0; i < _isUsed.size(); ++i) {
      if (!_isUsed[i]) {
        unused.push_back(i);
      }
    }
    return unused;
  }

  void checkChunk(std::size_t chunk) {
    atChunk(chunk, [this](const io::ChunkRow& row) { io::checkArray(_source, row); });
  }

 private:
  /// @param in null for the file
  Database(std::ifstream file, std::istream* in)
      : _file(std::move(file)),
        _source(in != nullptr ? *in : _file),
        _index(_source),
        _isUsed(_index.getTables().getChunks().size()) {
    if (_index.getRecords().empty()) {
      reportUnused();
    }
  }

  void advance(std::uint64_t bytes) {
    io::callHost([&] { _progress.advance(bytes); });
  }

  /// All records of a file may be read together, and each any number of times.
  Ptr<Node> decode(std::size_t record, io::ArrayBinder& binder, int sessionId) {
    std::uint64_t& used = _usedByRecord[record].content;
    _used.content -= std::exchange(used, 0);
    io::ContentBudget budget = _index.getBudget();
    budget.use(_used.content);
    const std::uint64_t before = budget.getUsed();
    io::GraphDecoder decoder(_index.getTables(), binder, budget, sessionId);
    const std::string_view graph = _index.getRecords()[record].graph;
    Ptr<Node> root = decoder.decode(graph);
    advance(graph.size());
    used = budget.getUsed() - before;
    _used.content += used;
    _unknown.report(_index.getTables(), decoder.getNodeCounts());
    return root;
  }

  /// A file of one record has as much as its scene needs.
  void countArrays(std::size_t record, const io::ArrayBinder& binder) {
    if (_index.getRecords().size() == 1) {
      return;
    }
    std::uint64_t& used = _usedByRecord[record].arrays;
    _used.arrays -= std::exchange(used, 0);
    const std::uint64_t allowed = ARRAY_BYTES + ARRAY_BYTES_PER_BYTE * _source.getSize();
    std::uint64_t bytes = 0;
    binder.forEachUse([&](std::size_t chunk) { bytes += _index.getTables().getChunks()[chunk].bytes(); });
    if (_used.arrays + bytes > allowed) {
      throw io::FileError(
          io::FileIoStatus::ReadError,
          fmt::format("The records use the same arrays for more than {} bytes, which is out of "
                      "proportion to the file",
                      allowed));
    }
    used = bytes;
    _used.arrays += bytes;
  }

  /// Before any array is left out because nobody wants it.
  void noteUses(std::size_t record, const io::ArrayBinder& binder) {
    if (std::exchange(_usedByRecord[record].areArraysNoted, true)) {
      return;
    }
    binder.forEachUse([this](std::size_t chunk) { _isUsed[chunk] = true; });
    if (++_notedRecords == _index.getRecords().size()) {
      reportUnused();
    }
  }

  void reportUnused() const {
    const auto first = std::ranges::find(_isUsed, false);
    if (first == _isUsed.end() || _unknown.hasAny()) {
      return;
    }
    const auto count = std::count(first, _isUsed.end(), false);
    const std::string others =
        count > 1 ? fmt::format(" and {} other{} belong", count - 1, count > 2 ? "s" : "") : " belongs";
    vemo::reportFinding(vemo::FindingCode::PAYLOAD_UNUSED,
                        describe(static_cast<std::size_t>(first - _isUsed.begin())) + others + " to no node");
  }

  std::string describe(std::size_t chunk) const {
    const io::TableReader& tables = _index.getTables();
    return fmt::format("Array {} \"{}\"", chunk, vemo::shortName(tables.getName(tables.getChunks()[chunk])));
  }

  /// Lets go the arrays of the record before that this one does not use.
  void keepOnly(const std::vector<std::size_t>& chunks) {
    std::erase_if(_latest,
                  [&chunks](const auto& kept) { return !std::ranges::binary_search(chunks, kept.first); });
  }

  /// Shared with other records of the file. Few bytes of records use a large array again and
  /// again: each must not read a copy of its own.
  vtkSmartPointer<vtkDataArray> readChunk(std::size_t chunk, ArrayPool* pool) {
    if (_index.getRecords().size() == 1) {
      return readOrFindInPool(chunk, pool);
    }
    vtkWeakPointer<vtkDataArray>& known = _known[chunk];
    vtkSmartPointer<vtkDataArray> array(known.Get());
    if (array == nullptr) {
      array = readOrFindInPool(chunk, pool);
      known = array;
    }
    _latest[chunk] = array;
    return array;
  }

  /// Null for a damaged one, which is reported once.
  vtkSmartPointer<vtkDataArray> tryToReadChunk(std::size_t chunk, const FaultSink& report) {
    if (_damaged.contains(chunk)) {
      return nullptr;
    }
    try {
      return readChunk(chunk, nullptr);
    } catch (const io::UnreadableFile&) {
      throw;
    } catch (const io::FileError& error) {
      _damaged.insert(chunk);
      report(error.what());
      return nullptr;
    }
  }

  vtkSmartPointer<vtkDataArray> readOrFindInPool(std::size_t chunk, ArrayPool* pool) {
    const io::ChunkRow& row = _index.getTables().getChunks()[chunk];
    const std::string text = _index.getTables().getName(row);
    const char* const name = row.name != 0 ? text.c_str() : nullptr;
    vtkSmartPointer<vtkDataArray> array = pool != nullptr ? pool->find(row, name) : nullptr;
    if (array != nullptr && hasBytesOf(chunk, *array)) {
      return array;
    }
    atChunk(chunk, [&](const io::ChunkRow& /*row*/) { array = io::readArray(_source, row); });
    if (name != nullptr) {
      array->SetName(name);
    }
    if (pool != nullptr) {
      pool->add(*array, row);
    }
    return array;
  }

  /// Arrays with the same hash may differ.
  bool hasBytesOf(std::size_t chunk, vtkDataArray& array) {
    bool isSame = false;
    atChunk(chunk, [&](const io::ChunkRow& row) { isSame = io::isSameArray(_source, row, array); });
    return isSame;
  }

  /// Calls a function at the start of a chunk; errors name the chunk.
  template <class Action>
  void atChunk(std::size_t chunk, Action&& action) {
    const io::ChunkRow& row = _index.getTables().getChunks()[chunk];
    at([&] { return describe(chunk); },
       [&] {
         _source.seek(_index.getOffset(chunk));
         action(row);
         advance(row.bytes());
       });
  }

  /// Not open for a stream that is the caller's.
  std::ifstream _file;
  io::InputSource _source;
  io::DatabaseIndex _index;
  struct Used {
    /// Of the budget.
    std::uint64_t content = 0;
    /// Of arrays, as often as nodes have them.
    std::uint64_t arrays = 0;
    bool areArraysNoted = false;
  };
  // By records that were read, and in all.
  std::unordered_map<std::size_t, Used> _usedByRecord;
  Used _used;
  io::UnknownParts _unknown;
  // By number: those that a record has of those noted.
  std::vector<bool> _isUsed;
  std::size_t _notedRecords = 0;
  std::set<std::size_t> _damaged;
  // By number: those that somebody has, and those of the record that was read last.
  std::unordered_map<std::size_t, vtkWeakPointer<vtkDataArray>> _known;
  std::unordered_map<std::size_t, vtkSmartPointer<vtkDataArray>> _latest;
  vemo::ProgressMeter _progress;
  ArrayFilter _arrayFilter;
};

SDBReader::SDBReader(const std::wstring& path) : _path(vemo::toNativePath(path)) {
  _database = at([this] { return _path; }, [this] { return std::make_unique<Database>(_path); });
  listRecords();
}

SDBReader::SDBReader(std::istream& in) : _path("stream") {
  _database = at([this] { return _path; }, [&in] { return std::make_unique<Database>(in); });
  listRecords();
}

SDBReader::~SDBReader() = default;

void SDBReader::setProgress(vemo::ProgressReport report) {
  _database->setProgress(std::move(report));
}

void SDBReader::setArrayFilter(ArrayFilter filter) {
  _database->setArrayFilter(std::move(filter));
}

void SDBReader::listRecords() {
  const auto& records = _database->getIndex().getRecords();
  _records.reserve(records.size());
  for (const auto& record : records) {
    _records.push_back(
        {std::string(record.title), std::string(record.description), std::string(record.simUUID)});
  }
}

std::vector<SDBReader::Array> SDBReader::getArrays() const {
  const io::DatabaseIndex& index = _database->getIndex();
  std::vector<Array> arrays;
  for (const io::ChunkRow& row : index.getTables().getChunks()) {
    arrays.push_back({index.getOffset(arrays.size()), row.bytes(), index.getTables().getName(row)});
  }
  return arrays;
}

Ptr<Node> SDBReader::readNode(std::size_t record, int sessionId, ArrayPool* pool) {
  return io::passOnHostFailure([&] {
    return at([&] { return fmt::format("{}: Record {}", _path, record); },
              [&] {
                requireBelow(_records.size(), record, "records");
                return _database->readNode(record, sessionId, pool);
              });
  });
}

Ptr<Node> SDBReader::checkRecord(std::size_t record, const FaultSink& report) {
  const auto reportFault = [&](const std::string& fault) {
    io::callHost([&] { report(fmt::format("{}: {}", _path, fault)); });
  };
  return io::passOnHostFailure([&]() -> Ptr<Node> {
    try {
      requireBelow(_records.size(), record, "records");
      return _database->checkRecord(record, reportFault);
    } catch (const io::UnreadableFile&) {
      throw;
    } catch (const io::FileError& error) {
      reportFault(fmt::format("Record {}: {}", record, error.what()));
      return {};
    }
  });
}

std::vector<std::size_t> SDBReader::getUnusedArrays() const {
  return _database->getUnused();
}

void SDBReader::checkArray(std::size_t array) {
  io::passOnHostFailure([&] {
    at([this] { return _path; },
       [&] {
         requireBelow(_database->getIndex().getTables().getChunks().size(), array, "arrays");
         _database->checkChunk(array);
       });
  });
}

}  // namespace lum
