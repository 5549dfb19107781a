#include "geometry/Normals.h"
#include "geometry/data/NamedArrays.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

namespace lum {

namespace {

using vemo::NamedArrays;
using ArrayPlaces = std::unordered_map<std::string, std::size_t>;

/// The first of each name.
ArrayPlaces placesOf(const ArrayTable& table) {
  ArrayPlaces places;
  for (std::size_t i = 0; i < table.size(); ++i) {
    places.try_emplace(std::string(NamedArrays::nameOf(*table[i])), i);
  }
  return places;
}

/// False once a reader has filled the table, which replaces all of it.
bool areCurrent(const ArrayPlaces& places, const ArrayTable& table, const std::string& name) {
  if (places.empty() || places.size() != table.size()) {
    return places.size() == table.size();
  }
  const auto known = places.find(name);
  const auto& [place, index] = known != places.end() ? *known : *places.begin();
  return NamedArrays::nameOf(*table[index]) == place;
}

void putArray(ArrayTable& table, std::unique_ptr<ArrayPlaces>& places, vtkDataArray* array) {
  VEMO_REQUIRE(array != nullptr, "must be not NULL");
  const std::string name(NamedArrays::nameOf(*array));
  if (places == nullptr || !areCurrent(*places, table, name)) {
    places = std::make_unique<ArrayPlaces>(placesOf(table));
  }
  const auto [known, isNew] = places->try_emplace(name, table.size());
  if (isNew) {
    table.emplace_back(array);
  } else {
    table[known->second] = array;
  }
}

ArrayTable arraysOf(vtkFieldData& data) {
  NamedArrays arrays;
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    // Arrays of text and the like have no place in a picture.
    if (vtkDataArray* array = data.GetArray(i)) {
      arrays.put(*array);
    }
  }
  return arrays.release();
}

void addArrays(vtkDataSetAttributes& data, const ArrayTable& table) {
  NamedArrays arrays;
  for (const auto& array : table) {
    arrays.put(*array);
  }
  arrays.addTo(data);
  if (const auto normals = arrays.find(vemo::NORMALS);
      normals && arrays[*normals].GetNumberOfComponents() == 3) {
    data.SetNormals(&arrays[*normals]);
  }
}

vtkCellArray* cellsOrNull(vtkCellArray* cells) {
  return cells->GetNumberOfCells() > 0 ? cells : nullptr;
}

}  // namespace

void PolyDataNode::setAttachmentPoint(const Vector3& point, int flag) {
  VEMO_REQUIRE(flag == 0, "Unknown way to set an attachment point");
  assign(_attachmentPoint, point);
}

void PolyDataNode::setPolyData(vtkPolyData* polyData) {
  VEMO_REQUIRE(polyData != nullptr, "must be not NULL");
  _points = polyData->GetPoints() != nullptr ? polyData->GetPoints()->GetData() : nullptr;
  for (const vemo::CellKindTraits& kind : vemo::CELL_KINDS) {
    this->*memberOf(kind.kind) = cellsOrNull(kind.get(*polyData));
  }
  _nodeDataArrays = arraysOf(*polyData->GetPointData());
  _cellDataArrays = arraysOf(*polyData->GetCellData());
  _nodeDataPlaces.reset();
  _cellDataPlaces.reset();
  modified();
}

vtkSmartPointer<vtkPolyData> PolyDataNode::getPolyData() const {
  auto polyData = vtkSmartPointer<vtkPolyData>::New();
  if (_points) {
    vtkNew<vtkPoints> points;
    points->SetData(_points);
    polyData->SetPoints(points);
  }
  for (const vemo::CellKindTraits& kind : vemo::CELL_KINDS) {
    kind.set(*polyData, getCells(kind.kind));
  }
  addArrays(*polyData->GetPointData(), _nodeDataArrays);
  addArrays(*polyData->GetCellData(), _cellDataArrays);
  return polyData;
}

void PolyDataNode::setNodeDataArray(vtkDataArray* array) {
  putArray(_nodeDataArrays, _nodeDataPlaces, array);
  modified();
}

void PolyDataNode::setCellDataArray(vtkDataArray* array) {
  putArray(_cellDataArrays, _cellDataPlaces, array);
  modified();
}

vtkDataArray* PolyDataNode::getPoints() const {
  return _points;
}
vtkCellArray* PolyDataNode::getCells(vemo::CellKind kind) const {
  return this->*memberOf(kind);
}

PolyDataNode::Cells PolyDataNode::*PolyDataNode::memberOf(vemo::CellKind kind) {
  switch (kind) {
    case vemo::CellKind::VERTS:
      return &PolyDataNode::_verts;
    case vemo::CellKind::LINES:
      return &PolyDataNode::_lines;
    case vemo::CellKind::POLYS:
      return &PolyDataNode::_polys;
    case vemo::CellKind::STRIPS:
      return &PolyDataNode::_strips;
  }
  throw vemo::InternalError("Unknown kind of cells", "kind", __FILE__, __LINE__);
}

}  // namespace lum
