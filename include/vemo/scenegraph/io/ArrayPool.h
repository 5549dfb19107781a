#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <memory>

class vtkDataArray;

namespace lum {

class Node;
namespace io {
struct ChunkRow;
}

/// Arrays that several graphs share. A reader with a pool does not keep an array
/// twice: an array with the name, type and bytes of one in the pool is replaced by
/// it, any other is added to the pool. Arrays that were read with a pool
/// must not be changed.
class VEMO_SCENEGRAPH_EXPORT ArrayPool {
 public:
  ArrayPool();
  ArrayPool(const ArrayPool&) = delete;
  ArrayPool& operator=(const ArrayPool&) = delete;
  ~ArrayPool();

  /// Adds all arrays of a graph.
  void addAll(Node& root);

 private:
  friend class SDBReader;

  void add(vtkDataArray& array, const io::ChunkRow& row);
  /// The array that may have the bytes of a row; null when there is none.
  vtkDataArray* find(const io::ChunkRow& row, const char* name) const;

  class Table;
  std::unique_ptr<Table> _table;
};

}  // namespace lum
