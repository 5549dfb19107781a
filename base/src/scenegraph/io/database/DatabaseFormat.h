#pragma once

#include "scenegraph/io/bytes/InputSource.h"
#include "scenegraph/io/codec/TableReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A database file:
///
///   header   HEADER_SIZE bytes: a line of JSON, padded with blanks
///   chunks   the bytes of arrays, each from a multiple of CHUNK_ALIGNMENT on
///   index    to the end of the file: tables (GraphFormat.h); for each chunk,
///            how many multiples of CHUNK_ALIGNMENT it leaves empty after the
///            end of the one before; count of records, and of each its title,
///            description and simulation id (numbers of strings) and its graph
///
/// Arrays lie as VTK holds them, little-endian. Chunks lie in the order of
/// their numbers, so that they cannot overlap.
namespace lum::io {

/// Earlier ones are read (FieldKinds.h has the history).
inline constexpr std::uint64_t FORMAT_VERSION = 2;
inline constexpr std::uint64_t FIRST_VERSION_WITH_LISTS = 2;
inline constexpr std::size_t HEADER_SIZE = 256;
inline constexpr std::uint64_t CHUNK_ALIGNMENT = 64;

struct IndexLocation {
  std::uint64_t offset;
  std::uint64_t size;
  std::uint64_t hash;
  /// Of the format.
  std::uint64_t version = FORMAT_VERSION;
};

std::string makeHeader(const IndexLocation& index);

/// What comes before the index is checked; UnsupportedFormat for anything
/// that does not begin as a database does, or is of a later version.
IndexLocation readHeader(InputSource& source);

/// The zeros from a position to the next chunk.
std::size_t paddingAt(std::uint64_t position);

/// The index of a database, in memory.
class DatabaseIndex {
 public:
  struct Record {
    std::string_view title;
    std::string_view description;
    std::string_view simUUID;
    /// The graph without its size.
    std::string_view graph;
  };

  /// Reads and checks header and index, except the graphs.
  explicit DatabaseIndex(InputSource& source);
  DatabaseIndex(const DatabaseIndex&) = delete;
  DatabaseIndex& operator=(const DatabaseIndex&) = delete;

  const TableReader& getTables() const { return _tables; }
  /// What graphs may take, and what the index itself takes.
  const ContentBudget& getBudget() const { return _budget; }
  const std::vector<Record>& getRecords() const { return _records; }

  /// Where a chunk begins.
  std::uint64_t getOffset(std::size_t chunk) const { return _offsets[chunk]; }

 private:
  void readOffsets(ByteReader& in, std::uint64_t end);
  void readRecords(ByteReader& in);

  std::string _bytes;
  ContentBudget _budget;
  TableReader _tables{_budget};
  std::vector<std::uint64_t> _offsets;
  std::vector<Record> _records;
};

}  // namespace lum::io
