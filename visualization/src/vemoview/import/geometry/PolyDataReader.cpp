#include "vemoview/import/geometry/PolyDataReader.h"

#include "geometry/Normals.h"
#include "geometry/PolyDataValidator.h"
#include "vemoview/import/Failure.h"
#include "vemoview/import/archive/DecodedEntries.h"
#include "vemoview/import/geometry/GeometryKeys.h"
#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace vemo {

namespace {

constexpr int COORDINATES = 3;
constexpr const char* DATA_KEY = "data";
/// An empty array could state any number of components.
constexpr int MAX_COMPONENTS_WITHOUT_VALUES = 256;

[[noreturn]] void failOutside(int index, vtkIdType pointCount, const std::string& entry) {
  failAt<IOException>("Entry '" + entry + "' refers to point " + std::to_string(index) +
                          ", but the geometry has only " +
                          lum::withNoun(std::to_string(pointCount), "point") +
                          ", counted from 0.<br>Your file may be corrupt.",
                      entry);
}

}  // namespace

PolyDataReader::PolyDataReader(vtkPolyData& polyData, bool isSmooth, DecodedEntries& decoded,
                               ReadingContext& context)
    : _polyData(polyData), _isSmooth(isSmooth), _decoded(decoded), _context(context) {}

void PolyDataReader::readPoints(const std::string& entry) {
  reportCutOff(_decoded.countFloats(entry), COORDINATES, entry);
  _polyData.SetPoints(_decoded.getPoints(entry));
  _hasPoints = true;
}

void PolyDataReader::readCells(CellKind kind, const std::string& entry) {
  const bool hadAllCells = std::exchange(_hasAllCells, false);
  if (!_hasPoints) {
    _decoded.checkCells(entry);
    return;
  }
  const vtkIdType pointCount = _polyData.GetNumberOfPoints();
  ImportedCells& imported = _cells[indexOf(kind)];
  imported = _decoded.getCells(entry, kind, pointCount);
  if (imported.indexOutside) {
    failOutside(*imported.indexOutside, pointCount, entry);
  }
  if (!imported.dropped.empty()) {
    _context.report(FindingCode::CELLS_LEFT_OUT,
                    std::to_string(imported.dropped.size()) + " of " + std::to_string(imported.listed) +
                        " cells have fewer than " + std::to_string(traitsOf(kind).leastPoints) +
                        " points and are left out",
                    entry);
  }
  traitsOf(kind).set(_polyData, imported.cells);
  _hasAllCells = hadAllCells;
}

vtkIdType PolyDataReader::listedCells() const {
  return std::accumulate(_cells.begin(), _cells.end(), vtkIdType{0},
                         [](vtkIdType sum, const ImportedCells& imported) { return sum + imported.listed; });
}

std::vector<vtkIdType> PolyDataReader::droppedCells() const {
  const std::vector<std::reference_wrapper<const ImportedCells>> lists(_cells.begin(), _cells.end());
  return droppedRows(lists);
}

int PolyDataReader::countFloats(const std::string& entry) {
  const ReadingContext::AttributeScope scope(&_context, DATA_KEY);
  return _decoded.countFloats(entry);
}

void PolyDataReader::leaveOut(const GeometryArray& array, const std::string& text) {
  _context.noteLoss();
  _context.report(FindingCode::ARRAY_LEFT_OUT, text, array.entry.value_or(""));
  if (array.isOfPoints) {
    _arraysLeftOut.push_back(array.name);
  }
}

std::string PolyDataReader::describeMisfit(const GeometryArray& array, int valueCount) const {
  const int components = array.components;
  if (components < 1 || components > std::max(MAX_COMPONENTS_WITHOUT_VALUES, valueCount)) {
    return std::to_string(valueCount) + " values cannot have " + std::to_string(components) + " components";
  }
  const vtkIdType tuples = valueCount / components;
  const vtkIdType places = array.isOfPoints ? _polyData.GetNumberOfPoints() : listedCells();
  return tuples == places ? ""
                          : "it has " + lum::withNoun(std::to_string(tuples), "value") + " for " +
                                lum::withNoun(std::to_string(places), array.isOfPoints ? "point" : "cell");
}

bool PolyDataReader::fits(const GeometryArray& array, HeldFindings& held) {
  const std::string entry = array.entry.value_or("");
  const int components = array.components;
  const int count = countFloats(entry);
  // If points or cells are missing, an array may only appear not to fit.
  if (!(array.isOfPoints ? _hasPoints : _hasAllCells)) {
    return false;
  }
  if (const std::string misfit = describeMisfit(array, count); !misfit.empty()) {
    const std::string outcome = "array " + ReadingContext::quoted(array.name) + " is left out";
    leaveOut(array, held.describe({GeometryArray::COMPONENTS, GeometryArray::OF_POINTS}, "the " + outcome,
                                  "The " + outcome + ": " + misfit));
    return false;
  }
  {
    const ReadingContext::AttributeScope scope(&_context, DATA_KEY);
    reportCutOff(count, components, entry);
  }
  // Those that count as normals are reported as such.
  if (components == COORDINATES && count >= components && array.name != NORMALS) {
    _context.report(
        FindingCode::ARRAY_MAGNITUDE,
        "The vectors of the array " + ReadingContext::quoted(array.name) + " are replaced by their lengths",
        entry);
  }
  return true;
}

void PolyDataReader::reportCutOff(vtkIdType values, int components, const std::string& entry) {
  if (values % components != 0) {
    _context.report(FindingCode::ARRAY_CUT,
                    "The number of values, " + std::to_string(values) + ", is not a multiple of " +
                        std::to_string(components) + ": those at the end are left out",
                    entry);
  }
}

void PolyDataReader::reportReplaced(const GeometryArray& earlier) {
  _context.reportReplaced(
      FindingCode::ARRAY_REPLACED,
      "The array " + ReadingContext::quoted(earlier.name) + " is replaced by a later one of the same name",
      earlier.place, earlier.entry.value_or(""));
}

void PolyDataReader::reportName(const GeometryArray& array) {
  const std::string entry = array.entry.value_or("");
  if (array.name == NORMALS) {
    _context.noteLoss();
    if (isSurface() && array.isOfPoints == _isSmooth) {
      _context.report(FindingCode::ARRAY_REPLACED,
                      "The array " + ReadingContext::quoted(array.name) + " is replaced by computed normals",
                      entry);
    } else {
      _context.report(
          FindingCode::ARRAY_IS_NORMALS,
          "The array " + ReadingContext::quoted(array.name) + " counts as normals and colours nothing",
          entry);
    }
  } else if (array.name.empty()) {
    _context.report(FindingCode::ARRAY_WITHOUT_NAME, "An array has no name", entry);
  }
}

bool PolyDataReader::isSurface() const {
  return _polyData.GetNumberOfPolys() > 0 || _polyData.GetNumberOfStrips() > 0;
}

bool PolyDataReader::isFull(const NamedArrays& arrays) const {
  // Surfaces get normals.
  return arrays.size() + (isSurface() ? 1 : 0) >= MAX_DATA_ARRAYS;
}

void PolyDataReader::addArray(vtkFloatArray& values, const GeometryArray& array) {
  Data& data = array.isOfPoints ? _ofPoints : _ofCells;
  const auto taken = data.arrays.find(array.name);
  if (!taken && isFull(data.arrays)) {
    leaveOut(array, "The array " + ReadingContext::quoted(array.name) + " is left out: at most " +
                        std::to_string(MAX_DATA_ARRAYS) + " arrays are possible");
    return;
  }
  if (taken) {
    reportReplaced(data.elements[*taken]);
    data.elements[*taken] = array;
  } else {
    data.elements.push_back(array);
  }
  reportName(array);
  data.arrays.put(values);
}

void PolyDataReader::readArray(const GeometryArray& array, HeldFindings& held) {
  if (!fits(array, held)) {
    return;
  }
  const std::string entry = array.entry.value_or("");
  const std::vector<vtkIdType> dropped = array.isOfPoints ? std::vector<vtkIdType>() : droppedCells();
  if (dropped.empty()) {
    addArray(*_decoded.getArray(entry, array.name, array.components), array);
  } else {
    const auto values = _decoded.copyArray(entry, array.name, array.components);
    removeRows(*values, dropped);
    addArray(*values, array);
  }
}

void PolyDataReader::putArrays() {
  _ofPoints.arrays.addTo(*_polyData.GetPointData());
  _ofCells.arrays.addTo(*_polyData.GetCellData());
}

}  // namespace vemo
