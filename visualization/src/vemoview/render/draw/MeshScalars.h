#pragma once

#include <vemo/resolve/MeshInstance.h>

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

namespace vemo {

/// How a mesh is coloured by its data.

inline bool hasCellScalars(const MeshInstance& mesh) {
  return mesh.scalars && mesh.scalars->location == ScalarLocation::CELLS;
}

inline bool hasPointScalars(const MeshInstance& mesh) {
  return mesh.scalars && mesh.scalars->location == ScalarLocation::POINTS;
}

inline vtkDataSetAttributes& dataAt(vtkPolyData& geometry, ScalarLocation location) {
  return location == ScalarLocation::CELLS ? static_cast<vtkDataSetAttributes&>(*geometry.GetCellData())
                                           : *geometry.GetPointData();
}

/// Of a mesh that has some.
inline vtkDataArray* scalarsOf(const MeshInstance& mesh) {
  return dataAt(*mesh.geometry, mesh.scalars->location).GetArray(mesh.scalars->arrayName.c_str());
}

}  // namespace vemo
