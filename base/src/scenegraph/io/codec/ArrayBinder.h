#pragma once

#include "scenegraph/io/codec/PolyDataCheck.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lum::io {

/// Gives decoded nodes their arrays, each node when all of its arrays have
/// arrived. Nodes whose arrays do not fit each other stay empty.
class ArrayBinder {
 public:
  /// The memory that a node takes for each of its arrays, while lists grow.
  static constexpr std::size_t USE_BYTES = 24;

  /// Takes the arrays out of a field; other fields stay as they are.
  static void clear(const Field& field);

  /// From now on a node waits for the chunks that calls of `expect` name, and for
  /// no others. The field of an index takes one or several, in their order.
  /// Throws FileError (ReadError) for a chunk that was released.
  void expectFor(Node& node, bool isNew);
  void expect(std::size_t field, std::size_t chunk);

  /// No node will wait for the chunk again: it is kept only for those that do now.
  void release(std::size_t chunk);

  /// Asks for each waiting node whether it is to get the chunks, in their order; the others
  /// wait no longer. Only before any chunk is provided.
  void filter(const std::function<bool(Node& node, std::span<const std::size_t> chunks)>& wants);

  /// The chunks that any node has waited for, in ascending order.
  std::vector<std::size_t> getExpected();
  bool has(std::size_t chunk) const {
    const std::size_t page = chunk / PAGE_SIZE;
    return page < _pages.size() && !_pages[page].empty() && _pages[page][chunk % PAGE_SIZE].isThere;
  }

  /// Calls a function with the chunk of each use by a node.
  template <class Visit>
  void forEachUse(Visit&& visit) const {
    for (const Use& use : _uses) {
      visit(use.chunk);
    }
  }

  /// Takes an array. What is wrong with the first of the nodes that are
  /// complete now; empty when nothing is.
  std::string provide(std::size_t chunk, vtkDataArray& array);

  /// Completes nodes that use only arrays that were there before them.
  std::string provideKnown();

 private:
  struct Chunk {
    /// Null before the array arrives, and after it is released.
    vtkSmartPointer<vtkDataArray> array;
    /// Of nodes that are not complete.
    std::uint32_t uses = 0;
    bool isThere = false;
    bool isReleased = false;
  };
  struct Use {
    std::uint32_t chunk;
    std::uint32_t field;
    std::uint32_t waiting;
  };
  struct Waiting {
    Ptr<Node> node;
    std::size_t firstUse;
    std::size_t useCount;
    std::size_t missing;
  };

  static constexpr std::size_t PAGE_SIZE = 256;

  vtkDataArray& getArray(std::size_t chunk) const {
    return *_pages[chunk / PAGE_SIZE][chunk % PAGE_SIZE].array;
  }
  Chunk& findOrMake(std::size_t chunk);
  static void clearAll(const FieldList& fields);
  void sortUses();
  /// The first of a chunk's uses, if it has any.
  std::vector<std::uint32_t>::const_iterator findUses(std::size_t chunk);
  void releaseUnused(std::size_t chunk);
  std::string complete(std::uint32_t waiting);
  std::string giveArrays(std::uint32_t waiting);
  std::string putArrays(const Waiting& waiting, FieldList& fields);
  std::string findCells(std::uint32_t offsets, std::uint32_t connectivity,
                        vtkSmartPointer<vtkCellArray>& cells);

  // A page is empty until one of its chunks is used: a record may use few of a
  // great many.
  std::vector<std::vector<Chunk>> _pages;
  std::size_t _arrayCount = 0;
  std::vector<Use> _uses;
  // Numbers of uses, in the order of their chunks.
  std::vector<std::uint32_t> _byChunk;
  std::vector<Waiting> _waiting;
  std::size_t _firstUnknown = 0;
  // By the chunks of offsets and connectivity: those that several nodes have.
  std::map<std::pair<std::uint32_t, std::uint32_t>, vtkSmartPointer<vtkCellArray>> _sharedCells;
  // Of nodes that changed: the last time that they began to wait.
  std::unordered_map<const Node*, std::uint32_t> _latest;
  PolyDataCheck _check;
};

}  // namespace lum::io
