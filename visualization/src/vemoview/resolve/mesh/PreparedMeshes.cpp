#include "vemoview/resolve/mesh/PreparedMeshes.h"

#include "geometry/Cells.h"
#include "geometry/data/SharedData.h"
#include "geometry/drawing/DrawableCells.h"
#include "geometry/drawing/LitFaces.h"
#include "geometry/drawing/PolygonFans.h"
#include "geometry/drawing/PolygonFilling.h"
#include "geometry/drawing/SpikyPolygons.h"
#include "vemoview/resolve/mesh/DrawingLoad.h"
#include <vemo/geometry/CellKind.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

#include <unordered_map>
#include <unordered_set>

namespace vemo {

namespace {

/// The arrays in their order, then which of them are the normals.
void appendArrays(std::vector<const void*>& content, vtkDataSetAttributes& data) {
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    content.push_back(data.GetAbstractArray(i));
  }
  content.push_back(nullptr);
  content.push_back(data.GetNormals());
}

std::vector<const void*> contentOf(vtkPolyData& geometry) {
  std::vector<const void*> content{geometry.GetPoints()->GetData()};
  for (const CellKindTraits& kind : CELL_KINDS) {
    vtkCellArray& cells = *kind.get(geometry);
    if (cells.GetNumberOfCells() > 0) {
      // Of other nodes they may be in another object.
      content.push_back(cells.GetOffsetsArray());
      content.push_back(cells.GetConnectivityArray());
    } else {
      content.push_back(nullptr);
    }
  }
  appendArrays(content, *geometry.GetPointData());
  appendArrays(content, *geometry.GetCellData());
  return content;
}

CellKinds cellsOf(Appearance::Kind kind) {
  switch (kind) {
    case Appearance::Kind::SURFACE:
      return CellKind::POLYS | CellKind::STRIPS;
    case Appearance::Kind::LINES:
      return CellKind::LINES;
    case Appearance::Kind::POINTS:
      break;
  }
  return CellKind::VERTS;
}

vtkSmartPointer<vtkPolyData> withoutNormals(vtkPolyData& geometry) {
  if (geometry.GetPointData()->GetNormals() == nullptr && geometry.GetCellData()->GetNormals() == nullptr) {
    return &geometry;
  }
  auto result = shallowCopy(geometry);
  result->GetPointData()->SetNormals(nullptr);
  result->GetCellData()->SetNormals(nullptr);
  return result;
}

/// The cells and corners of the triangles that fill polygons, and what cells have.
vtkIdType countFilling(vtkPolyData& mesh, const std::vector<vtkIdType>& polygons, bool areColored) {
  constexpr vtkIdType CELL_AND_CORNERS = 4;
  vtkIdType triangles = 0;
  const CellReader cells(*mesh.GetPolys());
  for (const vtkIdType polygon : polygons) {
    triangles += cells[polygon].size() - 2;
  }
  const bool areFlat = mesh.GetCellData()->GetNormals() != nullptr;
  return triangles * (CELL_AND_CORNERS + (areFlat ? 1 : 0) + (areColored ? 1 : 0));
}

/// @param source of the mesh
/// @param room for elements of what is made
void unfold(PreparedMesh& mesh, vtkPolyData& source, const std::string& colorsOfCells, vtkIdType room) {
  const std::vector<vtkIdType> folded = unfoldFans(mesh.geometry);
  const vtkIdType elements = countFilling(*mesh.geometry, folded, !colorsOfCells.empty());
  if (countMade(*mesh.geometry, source) + elements > room) {
    mesh.unfilled = elements;
    return;
  }
  correctSpikyPolygons(mesh.geometry);
  auto [filling, failures] =
      fillPolygons(*mesh.geometry, folded, colorsOfCells.empty() ? nullptr : colorsOfCells.c_str());
  mesh.filling = filling;
  mesh.misshapenPolygons = failures;
  if (failures > 0 && mesh.geometry->GetCellData()->GetNormals() != nullptr) {
    // Their triangles face both ways, or have no normal in common: each is lit with its own.
    mesh.geometry = withoutNormals(*mesh.geometry);
    mesh.filling = withoutNormals(*mesh.filling);
  }
}

/// The drawable cells of the kind.
/// @param room for elements of what is made
PreparedMesh make(vtkPolyData& geometry, const PreparedMeshes::Parts& parts, vtkIdType room) {
  PreparedMesh mesh;
  if (parts.isOfAllPoints) {
    mesh.geometry = pointsAsVertices(geometry);
    return mesh;
  }
  mesh.geometry = drawableCells(geometry, cellsOf(parts.kind));
  if (parts.kind != Appearance::Kind::SURFACE) {
    // Lines and points are not lit as the faces that share their points.
    mesh.geometry = withoutNormals(*mesh.geometry);
  } else if (parts.hasFaces) {
    unfold(mesh, geometry, parts.colorsOfCells, room);
    lightBothSides(mesh.geometry);
    if (mesh.filling != nullptr) {
      lightBothSides(mesh.filling);
    }
  }
  return mesh;
}

}  // namespace

vtkSmartPointer<vtkPolyData> PreparedMeshes::share(vtkPolyData& geometry) {
  return _shared.emplace(contentOf(geometry), &geometry).first->second;
}

const PreparedMesh& PreparedMeshes::prepare(vtkPolyData& shared, const Parts& parts) {
  const auto [known, isNew] = _prepared.try_emplace({&shared, parts});
  auto& [mesh, made] = known->second;
  if (isNew) {
    mesh = make(shared, parts, _mostMade - _made);
    made = mesh.unfilled + countMade(*mesh.geometry, shared);
    made += mesh.filling != nullptr ? countMade(*mesh.filling, *mesh.geometry) : 0;
    _made += made;
  }
  return mesh;
}

const PreparedMeshes::UsedPoints& PreparedMeshes::withUsedPoints(vtkPolyData& geometry) {
  const auto [known, isNew] = _compacted.try_emplace(&geometry);
  Compacted& compacted = known->second;
  if (isNew) {
    auto numbers = vtkSmartPointer<vtkIdList>::New();
    compacted.source = &geometry;
    compacted.result = {vemo::withUsedPoints(geometry, *numbers), numbers};
    compacted.made = countMade(*compacted.result.geometry, geometry);
    _made += compacted.made;
  }
  return compacted.result;
}

void PreparedMeshes::dropUnusedPoints() {
  std::erase_if(_compacted, [this](const auto& entry) {
    const Compacted& compacted = entry.second;
    const bool isUsed = compacted.result.geometry->GetReferenceCount() > 1;
    _made -= isUsed ? 0 : compacted.made;
    return !isUsed;
  });
}

void PreparedMeshes::dropUnused() {
  std::unordered_map<const vtkPolyData*, int> ownUses;
  for (const auto& [content, geometry] : _shared) {
    ++ownUses[geometry];
  }
  for (const auto& [key, prepared] : _prepared) {
    ++ownUses[prepared.mesh.geometry];
    ++ownUses[prepared.mesh.filling];
  }
  const auto isUsed = [&ownUses](vtkPolyData* geometry) {
    return geometry != nullptr && geometry->GetReferenceCount() > ownUses.at(geometry);
  };
  std::unordered_set<const vtkPolyData*> sources;
  std::erase_if(_prepared, [&](const auto& entry) {
    const auto& [mesh, made] = entry.second;
    if (isUsed(mesh.geometry) || isUsed(mesh.filling)) {
      sources.insert(entry.first.first);
      return false;
    }
    _made -= made;
    --ownUses[mesh.geometry];
    --ownUses[mesh.filling];
    return true;
  });
  std::erase_if(_shared,
                [&](const auto& entry) { return !sources.contains(entry.second) && !isUsed(entry.second); });
}

}  // namespace vemo
