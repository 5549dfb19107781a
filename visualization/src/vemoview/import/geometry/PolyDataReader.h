#pragma once

#include "geometry/Connectivity.h"
#include "geometry/data/NamedArrays.h"
#include "vemoview/import/geometry/GeometryKeys.h"

#include <array>
#include <string>
#include <vector>

class vtkFloatArray;
class vtkPolyData;

namespace vemo {

class DecodedEntries;
class HeldFindings;
class ReadingContext;

/// Fills a poly data from the entries of an archive: points first, then cells,
/// then the arrays over both, which are in it after putArrays. Poly data of the same entries share points,
/// cells and arrays, whose storage are the blocks of the entries. Nothing inconsistent gets in.
class PolyDataReader {
 public:
  /// @param isSmooth whether a surface gets normals of its points, not of its cells
  /// @param context receives the warnings
  PolyDataReader(vtkPolyData& polyData, bool isSmooth, DecodedEntries& decoded, ReadingContext& context);

  /// Three coordinates a point; a remainder at the end is ignored.
  void readPoints(const std::string& entry);

  /// Replaces the cells of that kind. Cells with too few points are left out
  /// with a warning.
  /// @throws InternalError for a list that does not end with its last cell
  /// @throws IOException for an index outside the points
  void readCells(CellKind kind, const std::string& entry);

  /// Whether there were cells of that kind, including those that were left out.
  bool hasListed(CellKind kind) const { return _cells[indexOf(kind)].listed > 0; }

  /// Whether the cells of all kinds could be read. Without points none can be.
  bool hasAllCells() const { return _hasAllCells; }

  /// Triples are stored as their lengths. An array that does not fit the points
  /// or cells is left out with a warning; the rows of cells that were left out
  /// are too. Of one name over the same places the last array is kept.
  /// @param held what is found about the values of its element: an array may not fit because of them
  void readArray(const GeometryArray& array, HeldFindings& held);
  void putArrays();

  /// The names of those over the points that were left out with a finding.
  const std::vector<std::string>& getArraysLeftOut() const { return _arraysLeftOut; }

 private:
  /// Those over the points, or over the cells.
  struct Data {
    NamedArrays arrays;
    /// Of each array.
    std::vector<GeometryArray> elements;
  };

  /// Whether an array has a value for each place; if not, it is left out.
  bool fits(const GeometryArray& array, HeldFindings& held);
  /// Why it has not; empty if it has.
  std::string describeMisfit(const GeometryArray& array, int valueCount) const;
  void leaveOut(const GeometryArray& array, const std::string& text);
  int countFloats(const std::string& entry);
  vtkIdType listedCells() const;
  std::vector<vtkIdType> droppedCells() const;
  void reportCutOff(vtkIdType values, int components, const std::string& entry);
  /// Which gets normals.
  bool isSurface() const;
  /// Whether a database could not hold another array.
  bool isFull(const NamedArrays& arrays) const;
  void addArray(vtkFloatArray& values, const GeometryArray& array);
  void reportReplaced(const GeometryArray& earlier);
  void reportName(const GeometryArray& array);

  vtkPolyData& _polyData;
  bool _isSmooth;
  DecodedEntries& _decoded;
  ReadingContext& _context;
  /// By kind.
  std::array<ImportedCells, CELL_KINDS.size()> _cells;
  Data _ofPoints;
  Data _ofCells;
  std::vector<std::string> _arraysLeftOut;
  bool _hasPoints = false;
  bool _hasAllCells = true;
};

}  // namespace vemo
