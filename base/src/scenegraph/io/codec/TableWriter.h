#pragma once

#include "scenegraph/io/bytes/ByteWriter.h"
#include "scenegraph/io/codec/ChunkRow.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <vtkDataArray.h>
#include <vtkType.h>
#include <vtkWeakPointer.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <typeindex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lum::io {

/// Longer strings are written each time they are used, so that the memory a
/// reader needs stays in proportion to the file.
inline constexpr std::size_t MAX_SHARED_STRING_BYTES = 64;

/// Takes the bytes of arrays.
class ArraySink {
 public:
  /// Stores an array, which is the next chunk, and sets the hash in its row.
  virtual void put(vtkDataArray& array, ChunkRow& row) = 0;

 protected:
  ~ArraySink() = default;
};

/// The string, list, class and chunk tables of what is written. They grow as nodes
/// are written; each `take` gives what came since the last one.
class TableWriter {
 public:
  /// `rememberAll`: arrays that only one node holds are remembered as well, so
  /// that the node may be written again without them.
  TableWriter(ArraySink& sink, bool rememberAll) : _sink(sink), _rememberAll(rememberAll) {}

  struct Class {
    std::uint64_t number;
    /// The number of its name.
    std::uint64_t name = 0;
    bool hasArrays = false;
    /// By field: the value that a new node has, as it would be written.
    std::vector<std::string> defaults;
  };

  /// Throws FileError (WriteError) for a class that the factory does not know.
  const Class& getClass(Node& node);

  /// The number of a string.
  std::uint64_t addString(std::string_view text);

  /// The number of a list, which is not empty.
  std::uint64_t addList(const SharedNumbers& list);

  /// The number of an array's chunk. `shared` when other nodes may hold it.
  std::uint64_t addArray(vtkDataArray& array, bool shared);

  /// The numbers of arrays that are gone or have changed since the last call, and of
  /// which no number will be given again.
  std::vector<std::uint64_t> takeReleased();

  void take(ByteWriter& out);

 private:
  /// An array that is made where another one was, or that changes, has a later time.
  struct KnownArray {
    vtkWeakPointer<vtkDataArray> array;
    vtkMTimeType time = 0;
    std::uint64_t number = 0;
  };
  struct StringHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  struct Table {
    std::uint64_t count = 0;
    ByteWriter rows;

    void take(ByteWriter& out);
  };

  Class addClass(Node& node);
  std::uint64_t writeArray(vtkDataArray& array);

  ArraySink& _sink;
  bool _rememberAll;
  std::unordered_map<std::string, std::uint64_t, StringHash, std::equal_to<>> _sharedStrings;
  // By the address of their numbers, which the list keeps.
  std::unordered_map<const double*, std::pair<SharedNumbers, std::uint64_t>> _listNumbers;
  std::unordered_map<std::type_index, Class> _classes;
  std::unordered_map<const vtkDataArray*, KnownArray> _arrays;
  std::vector<std::uint64_t> _released;
  std::uint64_t _stringCount = 0;
  std::uint64_t _arrayCount = 0;
  Table _strings;
  Table _lists;
  Table _classRows;
  Table _chunks;
};

/// Writes the value of a field; nothing at all for arrays that are not there.
void writeValue(ByteWriter& out, TableWriter& tables, const FieldValue& value);

}  // namespace lum::io
