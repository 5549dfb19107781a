#include "vemoview/import/archive/DecodedEntries.h"

#include "geometry/AdoptedArray.h"
#include "geometry/NewArray.h"
#include "geometry/Normals.h"
#include "vemoview/import/archive/ArchiveReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/base/Vector.h>

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkUnsignedCharArray.h>

#include <cmath>
#include <tuple>
#include <utility>

namespace vemo {

namespace {

constexpr int COORDINATES = 3;

/// In single precision; the squares of very long and very short vectors need more.
float magnitude(const float* triple) {
  const Vector<3, float> vector{triple[0], triple[1], triple[2]};
  if (const float squares = vector.squaredLength(); std::isnormal(squares)) {
    return std::sqrt(squares);
  }
  return static_cast<float>(length(Vector3{vector[0], vector[1], vector[2]}));
}

/// The Euclidean lengths of the triples.
vtkSmartPointer<vtkFloatArray> magnitudes(vtkFloatArray& values) {
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  const vtkIdType count = values.GetNumberOfValues() / COORDINATES;
  allocateTuples(*array, count);
  const float* triple = values.GetPointer(0);
  for (vtkIdType i = 0; i < count; ++i, triple += COORDINATES) {
    array->SetValue(i, magnitude(triple));
  }
  return array;
}

/// Makes an array of values one of tuples, without a remainder.
void group(vtkFloatArray& values, int components) {
  const vtkIdType tuples = values.GetNumberOfValues() / components;
  values.SetNumberOfComponents(components);
  values.SetNumberOfTuples(tuples);
}

}  // namespace

DecodedEntries::DecodedEntries(ArchiveReader& archive) : _archive(archive) {}
DecodedEntries::~DecodedEntries() = default;

int DecodedEntries::countFloats(const std::string& entry) {
  auto known = _floatCounts.find(entry);
  if (known == _floatCounts.end()) {
    _pendingFloats = loadFloats(entry);
    _pendingEntry = entry;
    known = _floatCounts.emplace(entry, static_cast<int>(_pendingFloats->GetNumberOfValues())).first;
  }
  _archive.reportContent(entry);
  return known->second;
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::loadFloats(const std::string& entry) {
  // Not held while there is another.
  _pendingFloats = nullptr;
  ArrayOwner<float> values(_archive.loadFloats(entry));
  const int count = values.count();
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  adoptBlock(*array, values.releaseBlock(), count);
  return array;
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::takeFloats(const std::string& entry) {
  return _pendingFloats != nullptr && _pendingEntry == entry ? std::exchange(_pendingFloats, nullptr)
                                                             : loadFloats(entry);
}

vtkSmartPointer<vtkPoints> DecodedEntries::getPoints(const std::string& entry) {
  auto& points = _points[entry];
  if (points == nullptr) {
    const auto values = takeFloats(entry);
    group(*values, COORDINATES);
    points = vtkSmartPointer<vtkPoints>::New();
    points->SetData(values);
  }
  return points;
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::getArray(const std::string& entry, const std::string& name,
                                                        int components) {
  _archive.countArrayName(entry, name);
  const std::tuple key(entry, components, name);
  const auto known = _arrays.find(key);
  if (known != _arrays.end()) {
    return known->second;
  }
  if (_floatCounts[entry] < components) {
    _archive.countEmptyArray(entry, components);
  }
  auto array = shareArray(entry, components);
  if (array != nullptr) {
    array->SetName(name.c_str());
  } else {
    array = copyArray(entry, name, components);
  }
  return _arrays.emplace(key, array).first->second;
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::shareArray(const std::string& entry, int components) {
  const auto first = _arrays.lower_bound({entry, components, std::string()});
  if (first == _arrays.end() || std::get<0>(first->first) != entry ||
      std::get<1>(first->first) != components) {
    return nullptr;
  }
  _archive.countCopy(entry);
  auto array = vtkSmartPointer<vtkFloatArray>::New();
  array->ShallowCopy(first->second);
  return array;
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::copyArray(const std::string& entry, const std::string& name,
                                                         int components) {
  auto array = takeFloats(entry);
  if (components == COORDINATES) {
    array = magnitudes(*array);
  } else {
    group(*array, components);
  }
  array->SetName(name.c_str());
  return array;
}

vtkSmartPointer<vtkUnsignedCharArray> DecodedEntries::getPixels(const std::string& entry, int components) {
  auto& pixels = _pixels[{entry, components}];
  if (pixels != nullptr) {
    _archive.reportContent(entry);
    return pixels;
  }
  ArrayOwner<unsigned char> bytes(_archive.readEntry(entry));
  const vtkIdType count = bytes.count();
  pixels = vtkSmartPointer<vtkUnsignedCharArray>::New();
  pixels->SetNumberOfComponents(components);
  adoptBlock(*pixels, bytes.releaseBlock(), count);
  return pixels;
}

const ImportedCells& DecodedEntries::getCells(const std::string& entry, CellKind kind, vtkIdType pointCount) {
  const std::tuple key(entry, kind, pointCount);
  const auto known = _cells.find(key);
  if (known != _cells.end()) {
    _archive.reportContent(entry);
    return known->second;
  }
  ArrayOwner<int> list(_archive.readIntBuffer(entry));
  const int size = list.count();
  try {
    return _cells.emplace(key, importCells(list.releaseBlock(), size, kind, pointCount)).first->second;
  } catch (InternalError& error) {
    error.getProperties().set("entry", entry);
    throw;
  }
}

void DecodedEntries::checkCells(const std::string& entry) {
  const ArrayOwner<int> unused(_archive.readIntBuffer(entry));
}

vtkSmartPointer<vtkFloatArray> DecodedEntries::getNormals(vtkPolyData& polyData, bool areOfPoints) {
  const Mesh mesh{polyData.GetPoints(), polyData.GetVerts(), polyData.GetLines(), polyData.GetPolys(),
                  polyData.GetStrips()};
  auto& normals = _normals[{mesh, areOfPoints}];
  if (normals == nullptr) {
    const vtkIdType count = areOfPoints ? polyData.GetNumberOfPoints() : polyData.GetNumberOfCells();
    _archive.countNormals(count, polyData.GetPolys()->GetNumberOfConnectivityIds() +
                                     polyData.GetStrips()->GetNumberOfConnectivityIds());
    normals = areOfPoints ? pointNormals(polyData) : cellNormals(polyData);
  }
  return normals;
}

std::shared_ptr<SharedPolyData> DecodedEntries::share(vtkPolyData& polyData) {
  return *_polyData.insert(std::make_shared<SharedPolyData>(PolyDataContent(polyData))).first;
}

void DecodedEntries::clear() {
  _floatCounts.clear();
  _pendingFloats = nullptr;
  _points.clear();
  _arrays.clear();
  _pixels.clear();
  _cells.clear();
  _normals.clear();
  _polyData.clear();
}

}  // namespace vemo
