#include "base/Utf8.h"
#include "scenegraph/io/codec/ArrayBinder.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/GraphDecoder.h"
#include "scenegraph/io/codec/UnknownParts.h"
#include "scenegraph/io/database/DatabaseFormat.h"
#include "scenegraph/io/database/HostCall.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <vtkWeakPointer.h>

#include <algorithm>
#include <cerrno>
#include <fmt/format.h>
#include <fstream>
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

/// Opens a regular file: opening a pipe would block.
std::ifstream openFile(const std::string& path) {
  // The system would take the path up to the zero.
  if (path.find('\0') != std::string::npos) {
    throw io::FileError(io::FileIoStatus::NotFound, std::generic_category().message(ENOENT));
  }
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) {
    const int error = errno;
    throw io::FileError(io::openingStatus(error), std::generic_category().message(error));
  }
  if (!S_ISREG(status.st_mode)) {
    throw io::FileError(io::FileIoStatus::ReadError, "It is not a regular file");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw io::FileError(io::FileIoStatus::ReadError, std::generic_category().message(errno));
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
  explicit Database(const std::string& path) : _file(openFile(path)), _source(_file), _index(_source) {}
  explicit Database(std::istream& in) : _source(in), _index(_source) {}

  const io::DatabaseIndex& getIndex() const { return _index; }

  void setProgress(vemo::ProgressReport report) {
    _progress = vemo::ProgressMeter(std::move(report));
    _progress.startPhase(1, _source.getSize());
  }

  void setArrayFilter(ArrayFilter filter) { _arrayFilter = std::move(filter); }

  Ptr<Node> readNode(std::size_t record, int sessionId, ArrayPool* pool) {
    io::ArrayBinder binder;
    const Ptr<Node> root = decode(record, binder, sessionId);
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

  /// Null for a record that uses one of the damaged chunks.
  Ptr<Node> checkRecord(std::size_t record, const std::set<std::size_t>& damaged,
                        std::vector<std::string>& faults) {
    io::ArrayBinder binder;
    const Ptr<Node> root = decode(record, binder, NO_SESSION);
    bool isWhole = true;
    countArrays(record, binder);
    const std::vector<std::size_t> expected = binder.getExpected();
    keepOnly(expected);
    for (const std::size_t chunk : expected) {
      if (damaged.contains(chunk)) {
        isWhole = false;
      } else if (const std::string fault = binder.provide(chunk, *readChunk(chunk, nullptr));
                 !fault.empty()) {
        faults.push_back(fault);
      }
    }
    return isWhole && faults.empty() ? root : nullptr;
  }

  void checkChunk(std::size_t chunk) {
    atChunk(chunk, [this](const io::ChunkRow& row) { io::checkArray(_source, row); });
  }

 private:
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
    at(
        [&] {
          return fmt::format("Array {} \"{}\"", chunk, vemo::shortName(_index.getTables().getName(row)));
        },
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
  };
  // By records that were read, and in all.
  std::unordered_map<std::size_t, Used> _usedByRecord;
  Used _used;
  io::UnknownParts _unknown;
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

SDBReader::CheckedRecord SDBReader::checkRecord(std::size_t record,
                                                const std::set<std::size_t>& damagedArrays) {
  CheckedRecord checked;
  std::vector<std::string> faults;
  io::passOnHostFailure([&] {
    try {
      requireBelow(_records.size(), record, "records");
      checked.node = _database->checkRecord(record, damagedArrays, faults);
    } catch (const io::UnreadableFile&) {
      throw;
    } catch (const io::FileError& error) {
      faults.emplace_back(error.what());
    }
  });
  for (const std::string& fault : faults) {
    checked.faults.push_back(fmt::format("{}: Record {}: {}", _path, record, fault));
  }
  return checked;
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
