#include "geometry/data/PolyDataContent.h"

#include "geometry/data/NamedArrays.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <tuple>

namespace vemo {

PolyDataContent::Data::Data(vtkDataSetAttributes& data) : normals(data.GetNormals()) {
  arrays.reserve(static_cast<std::size_t>(data.GetNumberOfArrays()));
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    arrays.emplace_back(data.GetArray(i));
  }
}

void PolyDataContent::Data::putInto(vtkDataSetAttributes& data) const {
  addArrays(arrays, data);
  if (normals != nullptr) {
    data.SetNormals(normals);
  }
}

PolyDataContent::PolyDataContent(vtkPolyData& polyData)
    : _points(polyData.GetPoints() != nullptr ? polyData.GetPoints()->GetData() : nullptr),
      _ofPoints(*polyData.GetPointData()),
      _ofCells(*polyData.GetCellData()) {
  for (const CellKindTraits& kind : CELL_KINDS) {
    vtkCellArray* const cells = kind.get(polyData);
    _cells[indexOf(kind.kind)] = cells->GetNumberOfCells() > 0 ? cells : nullptr;
  }
}

void PolyDataContent::putInto(vtkPolyData& polyData) const {
  if (_points != nullptr) {
    const vtkNew<vtkPoints> points;
    points->SetData(_points);
    polyData.SetPoints(points);
  }
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (vtkCellArray* const cells = _cells[indexOf(kind.kind)]) {
      kind.set(polyData, cells);
    }
  }
  _ofPoints.putInto(*polyData.GetPointData());
  _ofCells.putInto(*polyData.GetCellData());
}

bool PolyDataContent::operator<(const PolyDataContent& other) const {
  const auto objectsOf = [](const PolyDataContent& content) {
    return std::tie(content._points, content._cells, content._ofPoints.arrays, content._ofPoints.normals,
                    content._ofCells.arrays, content._ofCells.normals);
  };
  return objectsOf(*this) < objectsOf(other);
}

}  // namespace vemo
