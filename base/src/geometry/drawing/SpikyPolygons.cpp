#include "geometry/drawing/SpikyPolygons.h"

#include "geometry/Cells.h"
#include "geometry/Normals.h"
#include "geometry/Points.h"
#include "geometry/data/SharedData.h"

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <vector>

namespace vemo {

namespace {

/// The given normals; at the places, those that are as computed become the correct ones.
/// @param places numbers of tuples
vtkSmartPointer<vtkDataArray> corrected(vtkDataArray& given, vtkDataArray& computed, vtkDataArray& correct,
                                        const std::vector<vtkIdType>& places) {
  // Of unit vectors: other versions of the filter round differently.
  constexpr double UNNOTICEABLE = 1e-4;
  const PointReader givenNormals(given);
  const PointReader computedNormals(computed);
  auto result = vtk::TakeSmartPointer(given.NewInstance());
  result->DeepCopy(&given);
  for (const vtkIdType place : places) {
    if (length(givenNormals[place] - computedNormals[place]) < UNNOTICEABLE) {
      result->SetTuple(place, place, &correct);
    }
  }
  return result;
}

std::vector<vtkIdType> cornersOf(const std::vector<vtkIdType>& polygons, vtkCellArray& cells) {
  std::vector<vtkIdType> corners;
  vtkNew<vtkIdList> polygon;
  for (const vtkIdType number : polygons) {
    cells.GetCellAtId(number, polygon);
    corners.insert(corners.end(), polygon->begin(), polygon->end());
  }
  return corners;
}

}  // namespace

void correctSpikyPolygons(vtkSmartPointer<vtkPolyData>& faces) {
  vtkDataArray* const ofPoints = faces->GetPointData()->GetNormals();
  vtkDataArray* const ofCells = faces->GetCellData()->GetNormals();
  if (ofPoints == nullptr && ofCells == nullptr) {
    return;
  }
  std::vector<vtkIdType> polygons = findMisjudgedPolygons(*faces);
  if (polygons.empty()) {
    return;
  }
  auto copy = shallowCopy(*faces);
  if (ofPoints != nullptr) {
    const auto [byCorners, byArea] = bothPointNormals(*faces);
    copy->GetPointData()->SetNormals(
        corrected(*ofPoints, *byCorners, *byArea, cornersOf(polygons, *faces->GetPolys())));
  } else {
    const vtkIdType first = faces->GetNumberOfVerts() + faces->GetNumberOfLines();
    std::ranges::for_each(polygons, [first](vtkIdType& number) { number += first; });
    copy->GetCellData()->SetNormals(
        corrected(*ofCells, *cellNormals(*faces), *cellNormalsByArea(*faces), polygons));
  }
  faces = copy;
}

}  // namespace vemo
