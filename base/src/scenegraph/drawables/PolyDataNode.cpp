#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <string_view>

namespace lum {

namespace {

constexpr std::string_view NORMALS = "Normals";

std::string_view nameOf(vtkDataArray& array) {
  const char* name = array.GetName();
  return name != nullptr ? name : "";
}

void putArray(ArrayTable& table, vtkDataArray* array) {
  VEMO_REQUIRE(array != nullptr, "must be not NULL");
  const auto place =
      std::ranges::find_if(table, [&](const auto& held) { return nameOf(*held) == nameOf(*array); });
  if (place != table.end()) {
    *place = array;
  } else {
    table.emplace_back(array);
  }
}

ArrayTable arraysOf(vtkFieldData& data) {
  ArrayTable table;
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    // Arrays of text and the like have no place in a picture.
    if (vtkDataArray* array = data.GetArray(i)) {
      putArray(table, array);
    }
  }
  return table;
}

void addArrays(vtkDataSetAttributes& data, const ArrayTable& table) {
  for (const auto& array : table) {
    data.AddArray(array);
    if (nameOf(*array) == NORMALS && array->GetNumberOfComponents() == 3) {
      data.SetNormals(array);
    }
  }
}

vtkCellArray* cellsOrNull(vtkCellArray* cells) {
  return cells != nullptr && cells->GetNumberOfCells() > 0 ? cells : nullptr;
}

}  // namespace

void PolyDataNode::setAttachmentPoint(const Vector3& point, int flag) {
  VEMO_REQUIRE(flag == 0, "Unknown way to set an attachment point");
  assign(_attachmentPoint, point);
}

void PolyDataNode::setPolyData(vtkPolyData* polyData) {
  VEMO_REQUIRE(polyData != nullptr, "must be not NULL");
  _points = polyData->GetPoints() != nullptr ? polyData->GetPoints()->GetData() : nullptr;
  _verts = cellsOrNull(polyData->GetVerts());
  _lines = cellsOrNull(polyData->GetLines());
  _strips = cellsOrNull(polyData->GetStrips());
  _polys = cellsOrNull(polyData->GetPolys());
  _nodeDataArrays = arraysOf(*polyData->GetPointData());
  _cellDataArrays = arraysOf(*polyData->GetCellData());
  modified();
}

vtkSmartPointer<vtkPolyData> PolyDataNode::getPolyData() const {
  auto polyData = vtkSmartPointer<vtkPolyData>::New();
  if (_points) {
    vtkNew<vtkPoints> points;
    points->SetData(_points);
    polyData->SetPoints(points);
  }
  polyData->SetVerts(_verts);
  polyData->SetLines(_lines);
  polyData->SetStrips(_strips);
  polyData->SetPolys(_polys);
  addArrays(*polyData->GetPointData(), _nodeDataArrays);
  addArrays(*polyData->GetCellData(), _cellDataArrays);
  return polyData;
}

void PolyDataNode::setNodeDataArray(vtkDataArray* array) {
  putArray(_nodeDataArrays, array);
  modified();
}

void PolyDataNode::setCellDataArray(vtkDataArray* array) {
  putArray(_cellDataArrays, array);
  modified();
}

vtkDataArray* PolyDataNode::getPoints() const {
  return _points;
}
vtkCellArray* PolyDataNode::getVerts() const {
  return _verts;
}
vtkCellArray* PolyDataNode::getLines() const {
  return _lines;
}
vtkCellArray* PolyDataNode::getStrips() const {
  return _strips;
}
vtkCellArray* PolyDataNode::getPolys() const {
  return _polys;
}

}  // namespace lum
