#include "vemoview/render/vtk/ClippedInput.h"

#include "geometry/data/SharedData.h"
#include "geometry/drawing/DrawableCells.h"
#include "vemoview/render/vtk/Matrix.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/ClipPlane.h>

#include <vtkAppendPolyData.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkClipPolyData.h>
#include <vtkIdList.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkPointData.h>
#include <vtkPolyDataMapper.h>
#include <vtkTriangleFilter.h>

#include <algorithm>

namespace vemo {

namespace {

constexpr int HARDWARE_PLANES = static_cast<int>(HARDWARE_CLIP_PLANES);

vtkSmartPointer<vtkPolyData> clipped(vtkPolyData& geometry, vtkPlane& plane) {
  vtkNew<vtkClipPolyData> clipper;
  clipper->SetInputData(&geometry);
  clipper->SetClipFunction(&plane);
  clipper->Update();
  return clipper->GetOutput();
}

/// As they are drawn: VTK needs time with the square of their corners to clip them.
vtkSmartPointer<vtkPolyData> withFansOfLargePolygons(vtkPolyData& geometry) {
  constexpr vtkIdType LARGE = 1000;
  if (geometry.GetPolys()->GetMaxCellSize() <= LARGE) {
    return &geometry;
  }
  auto result = vtkSmartPointer<vtkPolyData>::New();
  result->SetPoints(geometry.GetPoints());
  shareArrays(*geometry.GetPointData(), *result->GetPointData());
  vtkCellData& data = *result->GetCellData();
  data.CopyAllOn();
  data.CopyAllocate(geometry.GetCellData());
  vtkNew<vtkCellArray> polygons;
  vtkNew<vtkIdList> corners;
  for (vtkIdType cell = 0; cell < geometry.GetPolys()->GetNumberOfCells(); ++cell) {
    geometry.GetPolys()->GetCellAtId(cell, corners);
    const vtkIdType count = corners->GetNumberOfIds();
    if (count <= LARGE) {
      data.CopyData(geometry.GetCellData(), cell, polygons->InsertNextCell(corners));
      continue;
    }
    for (vtkIdType i = 2; i < count; ++i) {
      const vtkIdType triangle[] = {corners->GetId(0), corners->GetId(i - 1), corners->GetId(i)};
      data.CopyData(geometry.GetCellData(), cell, polygons->InsertNextCell(3, triangle));
    }
  }
  result->SetPolys(polygons);
  return result;
}

vtkSmartPointer<vtkPolyData> trianglesOf(vtkPolyData& strips) {
  vtkNew<vtkTriangleFilter> triangles;
  triangles->SetInputData(&strips);
  triangles->Update();
  return triangles->GetOutput();
}

/// One kind after the other, and without strips: VTK mixes up the data of
/// cells of several kinds, and that of the triangles of strips.
vtkSmartPointer<vtkPolyData> clippedByKind(vtkPolyData& geometry, vtkPlane& plane) {
  vtkNew<vtkAppendPolyData> all;
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (kind.get(geometry)->GetNumberOfCells() > 0) {
      const auto cells = drawableCells(geometry, kind.kind);
      all->AddInputData(clipped(
          kind.kind == CellKind::STRIPS ? *trianglesOf(*cells) : *withFansOfLargePolygons(*cells), plane));
    }
  }
  all->Update();
  return all->GetOutput();
}

/// The plane in the coordinates of an instance.
vtkSmartPointer<vtkPlane> planeWithin(vtkPlane& plane, const InstanceTransform& transform) {
  auto result = vtkSmartPointer<vtkPlane>::New();
  const auto matrix = toMatrix(transform);
  // A point p of the model is M q: n (M q) is (transposed M n) q.
  Vector<4, double> normal{plane.GetNormal()[0], plane.GetNormal()[1], plane.GetNormal()[2], 0.0};
  Vector<4, double> origin{plane.GetOrigin()[0], plane.GetOrigin()[1], plane.GetOrigin()[2], 1.0};
  vtkNew<vtkMatrix4x4> inverse;
  vtkMatrix4x4::Invert(matrix, inverse);
  inverse->MultiplyPoint(origin.data(), origin.data());
  matrix->Transpose();
  matrix->MultiplyPoint(normal.data(), normal.data());
  result->SetNormal(normal.data());
  result->SetOrigin(origin.data());
  return result;
}

/// The first planes clip in the mapper; the others, which it does not accept, cut
/// the geometry itself.
vtkSmartPointer<vtkPolyData> cutByFurtherPlanes(vtkPolyData& geometry, vtkPlaneCollection& planes,
                                                const InstanceTransform* transform) {
  vtkSmartPointer<vtkPolyData> result = &geometry;
  for (int i = HARDWARE_PLANES; i < planes.GetNumberOfItems() && result->GetNumberOfCells() > 0; ++i) {
    vtkPlane& plane = *planes.GetItem(i);
    result = clippedByKind(*result, transform == nullptr ? plane : *planeWithin(plane, *transform));
  }
  return result;
}

}  // namespace

void setClippedInput(vtkPolyDataMapper& mapper, vtkPolyData& geometry, vtkPlaneCollection& planes,
                     const InstanceTransform* transform) {
  for (int i = 0; i < std::min(planes.GetNumberOfItems(), HARDWARE_PLANES); ++i) {
    mapper.AddClippingPlane(planes.GetItem(i));
  }
  mapper.SetInputData(cutByFurtherPlanes(geometry, planes, transform));
}

}  // namespace vemo
