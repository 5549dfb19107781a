#pragma once

#include "geometry/Connectivity.h"
#include "geometry/data/SharedPolyData.h"

#include <vtkSmartPointer.h>

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

class vtkFloatArray;
class vtkPoints;
class vtkPolyData;
class vtkUnsignedCharArray;

namespace vemo {

class ArchiveReader;

/// What geometry was made of an archive's entries. Items that name the same
/// entries share it: it is read, checked and computed once, and nobody changes
/// it. What is wrong with an entry's content is reported for each item.
class DecodedEntries {
 public:
  explicit DecodedEntries(ArchiveReader& archive);
  ~DecodedEntries();
  DecodedEntries(const DecodedEntries&) = delete;
  DecodedEntries& operator=(const DecodedEntries&) = delete;

  /// Reads an entry of floats, or has read it: how many there are. Throws as
  /// ArchiveReader::readFloatBuffer does.
  int countFloats(const std::string& entry);

  /// Three coordinates a point; a remainder is left out. Of an entry that was
  /// counted, as are the arrays.
  vtkSmartPointer<vtkPoints> getPoints(const std::string& entry);

  /// A remainder is left out. Triples are replaced by their lengths. Those that only differ in the name
  /// share their values.
  vtkSmartPointer<vtkFloatArray> getArray(const std::string& entry, const std::string& name, int components);

  /// Such an array that the caller alone has.
  vtkSmartPointer<vtkFloatArray> copyArray(const std::string& entry, const std::string& name, int components);

  /// The bytes of an entry, of which each pixel has some. Throws as
  /// ArchiveReader::readEntry does.
  vtkSmartPointer<vtkUnsignedCharArray> getPixels(const std::string& entry, int components);

  /// Throws as importCells and ArchiveReader::readIntBuffer do.
  const ImportedCells& getCells(const std::string& entry, CellKind kind, vtkIdType pointCount);

  /// Reads an entry of cells that no points are there for: it may have faults of
  /// its own. Throws as ArchiveReader::readIntBuffer does.
  void checkCells(const std::string& entry);

  /// Of the points or else the cells of a poly data that was made of entries. Counts as data
  /// that is read from the archive, and as a copy: very many cells may share very many points.
  vtkSmartPointer<vtkFloatArray> getNormals(vtkPolyData& polyData, bool areOfPoints);

  /// One for all poly data that have the very same points, cells and arrays.
  std::shared_ptr<SharedPolyData> share(vtkPolyData& polyData);

  /// Forgets all of it: from then on only the items have it.
  void clear();

 private:
  /// One that shares the values of an array with another name; null if there is none.
  vtkSmartPointer<vtkFloatArray> shareArray(const std::string& entry, int components);
  vtkSmartPointer<vtkFloatArray> loadFloats(const std::string& entry);
  /// Those that are pending, or the entry's once more.
  vtkSmartPointer<vtkFloatArray> takeFloats(const std::string& entry);

  ArchiveReader& _archive;
  std::map<std::string, int> _floatCounts;
  /// The entry read last, until something is made of it.
  std::string _pendingEntry;
  vtkSmartPointer<vtkFloatArray> _pendingFloats;

  std::map<std::string, vtkSmartPointer<vtkPoints>> _points;
  /// By the entry, the number of components, and the name.
  std::map<std::tuple<std::string, int, std::string>, vtkSmartPointer<vtkFloatArray>> _arrays;
  std::map<std::pair<std::string, int>, vtkSmartPointer<vtkUnsignedCharArray>> _pixels;
  std::map<std::tuple<std::string, CellKind, vtkIdType>, ImportedCells> _cells;
  /// By the points and the cells of each kind.
  using Mesh = std::array<vtkSmartPointer<vtkObject>, 1 + CELL_KINDS.size()>;
  std::map<std::pair<Mesh, bool>, vtkSmartPointer<vtkFloatArray>> _normals;
  struct ByContent {
    bool operator()(const std::shared_ptr<SharedPolyData>& left,
                    const std::shared_ptr<SharedPolyData>& right) const {
      return left->getContent() < right->getContent();
    }
  };
  std::set<std::shared_ptr<SharedPolyData>, ByContent> _polyData;
};

}  // namespace vemo
