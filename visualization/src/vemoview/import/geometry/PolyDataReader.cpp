#include "vemoview/import/geometry/PolyDataReader.h"

#include "geometry/AdoptedArray.h"
#include "geometry/Normals.h"
#include "vemoview/import/Failure.h"
#include "vemoview/import/archive/ArchiveReader.h"
#include "vemoview/import/geometry/GeometryKeys.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/base/Vector.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
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

/// The values become those of an array with that number of components.
vtkSmartPointer<vtkFloatArray> adopt(ArrayOwner<float> values, int components) {
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  const vtkIdType tuples = values.count() / components;
  array->SetNumberOfComponents(components);
  adoptBlock(*array, values.releaseBlock(), tuples * components);
  return array;
}

/// The Euclidean lengths of the triples, in single precision.
vtkSmartPointer<vtkFloatArray> magnitudes(const ArrayOwner<float>& values) {
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  const vtkIdType count = values.count() / COORDINATES;
  array->SetNumberOfValues(count);
  const float* triple = values.data();
  for (vtkIdType i = 0; i < count; ++i, triple += COORDINATES) {
    array->SetValue(i, length(Vector<3, float>{triple[0], triple[1], triple[2]}));
  }
  return array;
}

[[noreturn]] void failOutside(int index, vtkIdType pointCount, const std::string& entry) {
  failAt<IOException>("Entry '" + entry + "' refers to point " + std::to_string(index) +
                          ", but the geometry has only " + std::to_string(pointCount) +
                          " points, counted from 0.<br>Your file may be corrupt.",
                      entry);
}

}  // namespace

PolyDataReader::PolyDataReader(vtkPolyData& polyData, ArchiveReader& archive, ReadingContext& context)
    : _polyData(polyData), _archive(archive), _context(context) {}

void PolyDataReader::readPoints(const std::string& entry) {
  vtkNew<vtkPoints> points;
  ArrayOwner<float> values(_archive.readFloatBuffer(entry));
  reportCutOff(values.count(), COORDINATES, entry);
  points->SetData(adopt(std::move(values), COORDINATES));
  _polyData.SetPoints(points);
  _hasPoints = true;
}

void PolyDataReader::readCells(CellKind kind, const std::string& entry) {
  const bool hadAllCells = std::exchange(_hasAllCells, false);
  ArrayOwner<int> list(_archive.readIntBuffer(entry));
  if (!_hasPoints) {
    return;
  }
  const int size = list.count();
  const vtkIdType pointCount = _polyData.GetNumberOfPoints();
  ImportedCells& imported = _cells[indexOf(kind)];
  imported = importCells(list.releaseBlock(), size, kind, pointCount);
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

ArrayOwner<float> PolyDataReader::readData(const std::string& entry) {
  const ReadingContext::AttributeScope scope(&_context, DATA_KEY);
  return ArrayOwner<float>(_archive.readFloatBuffer(entry));
}

vtkSmartPointer<vtkFloatArray> PolyDataReader::readValues(const GeometryArray& array,
                                                          vtkIdType tuplesExpected, const char* places) {
  const std::string entry = array.entry.value_or("");
  const int components = array.components;
  ArrayOwner<float> values = readData(entry);
  // If points or cells are missing, an array may only appear not to fit.
  if (!(array.isOfPoints ? _hasPoints : _hasAllCells)) {
    return nullptr;
  }
  const auto leaveOut = [&](const std::string& reason) {
    _context.report(FindingCode::ARRAY_LEFT_OUT, "The array \"" + array.name + "\" is left out: " + reason,
                    entry);
    return nullptr;
  };
  if (components < 1 || components > std::max(MAX_COMPONENTS_WITHOUT_VALUES, values.count())) {
    return leaveOut(std::to_string(values.count()) + " values cannot have " + std::to_string(components) +
                    " components");
  }
  const vtkIdType tuples = values.count() / components;
  if (tuples != tuplesExpected) {
    return leaveOut("it has " + std::to_string(tuples) + " values for " + std::to_string(tuplesExpected) +
                    " " + places);
  }
  {
    const ReadingContext::AttributeScope scope(&_context, DATA_KEY);
    reportCutOff(values.count(), components, entry);
  }
  if (components == COORDINATES && tuples > 0) {
    _context.report(FindingCode::ARRAY_MAGNITUDE,
                    "The vectors of the array \"" + array.name + "\" are replaced by their lengths", entry);
  }
  auto read = components == COORDINATES ? magnitudes(values) : adopt(std::move(values), components);
  read->SetName(array.name.c_str());
  return read;
}

void PolyDataReader::reportCutOff(vtkIdType values, int components, const std::string& entry) {
  if (values % components != 0) {
    _context.report(FindingCode::ARRAY_CUT,
                    "The last " + std::to_string(values % components) + " of " + std::to_string(values) +
                        " values are left out: " + std::to_string(components) + " are needed",
                    entry);
  }
}

void PolyDataReader::reportName(const GeometryArray& array, bool isTaken) {
  const std::string entry = array.entry.value_or("");
  if (isTaken) {
    _context.report(FindingCode::ARRAY_REPLACED,
                    "The array \"" + array.name + "\" replaces an earlier one of the same name", entry);
  }
  if (array.name == NORMALS) {
    _context.report(FindingCode::ARRAY_IS_NORMALS,
                    "The array \"" + array.name + "\" counts as normals and colours nothing", entry);
  } else if (array.name.empty()) {
    _context.report(FindingCode::ARRAY_WITHOUT_NAME, "An array has no name", entry);
  }
}

void PolyDataReader::addArray(vtkFieldData& data, vtkFloatArray& values, const GeometryArray& array) {
  reportName(array, data.HasArray(array.name.c_str()) != 0);
  data.AddArray(&values);
}

void PolyDataReader::readArray(const GeometryArray& array) {
  if (array.isOfPoints) {
    if (const auto values = readValues(array, _polyData.GetNumberOfPoints(), "points")) {
      addArray(*_polyData.GetPointData(), *values, array);
    }
  } else if (const auto values = readValues(array, listedCells(), "cells")) {
    const std::vector<std::reference_wrapper<const ImportedCells>> lists(_cells.begin(), _cells.end());
    removeRows(*values, droppedRows(lists));
    addArray(*_polyData.GetCellData(), *values, array);
  }
}

}  // namespace vemo
