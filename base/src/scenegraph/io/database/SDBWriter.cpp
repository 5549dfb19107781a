#include "base/AtomicFile.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/GraphEncoder.h"
#include "scenegraph/io/codec/TableWriter.h"
#include "scenegraph/io/database/DatabaseFormat.h"
#include "scenegraph/io/database/HostCall.h"
#include "scenegraph/io/database/OutputFile.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <filesystem>
#include <limits>
#include <system_error>
#include <utility>

namespace lum {

/// The file that is being written. Unusable after a failure.
class SDBWriter::Database final : private io::ArraySink {
 public:
  Database(const std::string& path, bool keepExisting, vemo::ProgressMeter& progress)
      : _file(path, keepExisting), _tables(*this, false), _progress(progress) {
    // Without a header, an incomplete file is not taken for a database.
    _file.fill(io::HEADER_SIZE);
  }

  int add(const std::string& title, const std::string& description, const std::string& simUUID, Node& node) {
    VEMO_REQUIRE(_recordCount < std::numeric_limits<int>::max(), "Too many records");
    for (const auto& text : {title, description, simUUID}) {
      _records.number(_tables.addString(text));
    }
    io::GraphEncoder(_tables, 0).encode(node, _records);
    return _recordCount++;
  }

  void finish() {
    io::ByteWriter index;
    _tables.take(index);
    for (std::uint64_t i = 0; i < _chunkCount; ++i) {
      index.number(0);
    }
    index.number(static_cast<std::uint64_t>(_recordCount));
    index.bytes(_records.view().data(), _records.size());
    const std::uint64_t offset = _file.getPosition();
    _file.write(index.view().data(), index.size());
    _file.writeFirst(io::makeHeader({offset, index.size(), io::hashOf(index.view())}));
  }

  /// Of the finished file.
  std::wstring getTemporaryPath() const { return vemo::toWidePath(_file.getTemporaryPath().native()); }

  void commit() { _file.commit(); }

  bool hasFailed = false;

 private:
  void put(vtkDataArray& array, io::ChunkRow& row) override {
    _file.fill(io::paddingAt(_file.getPosition()));
    row.hash = io::hashInBlocks(io::bytesOf(array), [this](std::string_view block) {
      _file.write(block.data(), block.size());
      io::callHost([&] { _progress.advance(block.size()); });
    });
    ++_chunkCount;
  }

  io::OutputFile _file;
  io::TableWriter _tables;
  vemo::ProgressMeter& _progress;
  io::ByteWriter _records;
  std::uint64_t _chunkCount = 0;
  int _recordCount = 0;
};

/// The result of an operation; a failure is logged and remembered.
template <class Operation>
io::FileIoStatus SDBWriter::run(Operation&& operation) {
  const auto fail = [this](const char* cause, io::FileIoStatus status) {
    VEMO_LOG_ERROR(cause);
    _failure = cause;
    return status;
  };
  return io::passOnHostFailure([&] {
    try {
      operation();
      return io::FileIoStatus::Success;
    } catch (const io::FileError& error) {
      return fail(error.what(), error.getStatus());
    } catch (const vemo::OS::FileWriteError& error) {
      return fail(error.what(), io::FileIoStatus::WriteError);
    }
  });
}

SDBWriter::SDBWriter() = default;
SDBWriter::~SDBWriter() = default;

io::FileIoStatus SDBWriter::open(const std::wstring& path, bool append, bool keepExisting) {
  _database.reset();
  _failure.clear();
  _progress = vemo::ProgressMeter();
  _verifier = nullptr;
  const std::string native = vemo::toNativePath(path);
  return run([&] {
    auto database = std::make_unique<Database>(native, keepExisting, _progress);
    std::error_code ignored;
    if (append && std::filesystem::exists(native, ignored)) {
      SDBReader existing(path);
      for (std::size_t i = 0; i < existing.getRecords().size(); ++i) {
        const SDBReader::Record& record = existing.getRecords()[i];
        database->add(record.title, record.description, record.simUUID, *existing.readNode(i));
      }
    }
    _database = std::move(database);
  });
}

void SDBWriter::setProgress(vemo::ProgressReport report, std::uint64_t expectedBytes) {
  _progress = vemo::ProgressMeter(std::move(report));
  _progress.startPhase(1, expectedBytes);
}

void SDBWriter::setVerifier(Verifier verifier) {
  _verifier = std::move(verifier);
}

io::FileIoStatus SDBWriter::addRecord(const std::string& title, const std::string& description,
                                      const std::string& simUUID, Node& node, int& recordNumber) {
  if (!_database || _database->hasFailed) {
    return io::FileIoStatus::WriteError;
  }
  // Cleared on success only.
  _database->hasFailed = true;
  return run([&] {
    recordNumber = _database->add(title, description, simUUID, node);
    _database->hasFailed = false;
  });
}

io::FileIoStatus SDBWriter::close() {
  const std::unique_ptr<Database> database = std::move(_database);
  if (!database || database->hasFailed) {
    return io::FileIoStatus::WriteError;
  }
  const io::FileIoStatus finished = run([&] { database->finish(); });
  if (finished != io::FileIoStatus::Success) {
    return finished;
  }
  if (_verifier) {
    _verifier(database->getTemporaryPath());
  }
  const io::FileIoStatus committed = run([&] { database->commit(); });
  if (committed == io::FileIoStatus::Success) {
    _progress.finish();
  }
  return committed;
}

}  // namespace lum
