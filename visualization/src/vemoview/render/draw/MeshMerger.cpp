#include "vemoview/render/draw/MeshMerger.h"

#include "geometry/Bounds.h"
#include "geometry/NewArray.h"
#include "vemoview/render/draw/DrawnAppearance.h"
#include "vemoview/render/draw/MeshScalars.h"
#include "vemoview/render/resources/LookupTables.h"
#include <vemo/geometry/CellKind.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>
#include <utility>

namespace vemo {

namespace {

constexpr const char* COLORS = "Colors";
constexpr int CHANNELS = 4;

using Members = std::vector<const MeshInstance*>;

/// Red, green, blue, alpha.
std::array<unsigned char, CHANNELS> toBytes(const Vector3& color) {
  const auto toByte = [](double value) { return static_cast<unsigned char>(std::lround(value * 255.0)); };
  return {toByte(color[0]), toByte(color[1]), toByte(color[2]), 255};
}

/// A run of tuples of an array.
struct Run {
  vtkDataArray* array;
  vtkIdType first;
  vtkIdType count;
};

/// One array of all the runs, with the type and name of the first.
vtkSmartPointer<vtkDataArray> concatenate(const std::vector<Run>& runs) {
  vtkDataArray& model = *runs.front().array;
  auto result = vtk::TakeSmartPointer(model.NewInstance());
  vtkIdType total = 0;
  for (const Run& run : runs) {
    total += run.count;
  }
  result->SetName(model.GetName());
  result->SetNumberOfComponents(model.GetNumberOfComponents());
  setTupleCount(*result, total);
  vtkIdType place = 0;
  for (const Run& run : runs) {
    if (run.count > 0) {
      result->InsertTuples(place, run.count, run.first, run.array);
      place += run.count;
    }
  }
  return result;
}

class Merger {
 public:
  Merger(const Members& members, LookupTables& tables) : _members(members), _tables(tables) {}

  RenderMesh run() {
    RenderMesh result;
    result.appearance = drawnAppearance(first().appearance);
    result.transforms = first().transforms;
    result.geometry = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    points->SetData(
        mergePointArrays([](const MeshInstance& mesh) { return mesh.geometry->GetPoints()->GetData(); }));
    result.geometry->SetPoints(points);
    for (const CellKindTraits& kind : CELL_KINDS) {
      kind.set(*result.geometry, mergeCells(kind));
    }
    result.parts = boundParts();
    mergeNormals(*result.geometry);
    mergeColors(result);
    return result;
  }

 private:
  const MeshInstance& first() const { return *_members.front(); }

  template <class GetArray>
  vtkSmartPointer<vtkDataArray> mergePointArrays(GetArray&& getArray) const {
    std::vector<Run> runs;
    for (const MeshInstance* const member : _members) {
      runs.push_back({getArray(*member), 0, member->geometry->GetNumberOfPoints()});
    }
    return concatenate(runs);
  }

  /// All vertices come first, then all lines, and so on; so do their tuples.
  template <class GetArray>
  vtkSmartPointer<vtkDataArray> mergeCellArrays(GetArray&& getArray) const {
    std::vector<Run> runs;
    std::vector<vtkIdType> places(_members.size(), 0);
    for (const CellKindTraits& kind : CELL_KINDS) {
      for (std::size_t i = 0; i < _members.size(); ++i) {
        const MeshInstance& mesh = *_members[i];
        const vtkIdType count = kind.get(*mesh.geometry)->GetNumberOfCells();
        runs.push_back({getArray(mesh), places[i], count});
        places[i] += count;
      }
    }
    return concatenate(runs);
  }

  vtkSmartPointer<vtkCellArray> mergeCells(const CellKindTraits& kind) const {
    vtkIdType cells = 0;
    vtkIdType indices = 0;
    for (const MeshInstance* const member : _members) {
      vtkCellArray& from = *kind.get(*member->geometry);
      cells += from.GetNumberOfCells();
      indices += from.GetNumberOfConnectivityIds();
    }
    auto merged = vtkSmartPointer<vtkCellArray>::New();
    merged->Use32BitStorage();
    allocateCells(*merged, cells, indices);
    vtkIdType firstPoint = 0;
    for (const MeshInstance* const member : _members) {
      vtkPolyData& from = *member->geometry;
      merged->Append(kind.get(from), firstPoint);
      firstPoint += from.GetNumberOfPoints();
    }
    return merged;
  }

  SharedBoxes boundParts() const {
    std::vector<Box> boxes;
    boxes.reserve(_members.size());
    for (const MeshInstance* const member : _members) {
      boxes.push_back(boundsOfCells(*member->geometry));
    }
    return std::make_shared<const std::vector<Box>>(std::move(boxes));
  }

  void mergeNormals(vtkPolyData& geometry) const {
    if (first().geometry->GetPointData()->GetNormals() != nullptr) {
      geometry.GetPointData()->SetNormals(mergePointArrays(
          [](const MeshInstance& mesh) { return mesh.geometry->GetPointData()->GetNormals(); }));
    }
    if (first().geometry->GetCellData()->GetNormals() != nullptr) {
      geometry.GetCellData()->SetNormals(mergeCellArrays(
          [](const MeshInstance& mesh) { return mesh.geometry->GetCellData()->GetNormals(); }));
    }
  }

  void mergeColors(RenderMesh& result) const {
    if (hasPointScalars(first())) {
      setScalars(result, ScalarLocation::POINTS, mergePointArrays(scalarsOf),
                 _tables.get(first().scalars->table));
    } else if (hasCellScalars(first())) {
      setScalars(result, ScalarLocation::CELLS, mergeCellColors(), nullptr);
    } else {
      setScalars(result, ScalarLocation::POINTS, mergeMeshColors(), nullptr);
    }
  }

  vtkSmartPointer<vtkDataArray> mergeCellColors() const {
    std::map<const MeshInstance*, vtkSmartPointer<vtkUnsignedCharArray>> colors;
    for (const MeshInstance* const member : _members) {
      vtkLookupTable& table = *_tables.get(member->scalars->table);
      colors[member] =
          vtk::TakeSmartPointer(table.MapScalars(scalarsOf(*member), VTK_COLOR_MODE_MAP_SCALARS, -1));
    }
    return mergeCellArrays([&colors](const MeshInstance& mesh) { return colors.at(&mesh).Get(); });
  }

  /// The colour of each mesh, at each of its points.
  vtkSmartPointer<vtkDataArray> mergeMeshColors() const {
    vtkIdType points = 0;
    for (const MeshInstance* const member : _members) {
      points += member->geometry->GetNumberOfPoints();
    }
    auto colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
    colors->SetNumberOfComponents(CHANNELS);
    setTupleCount(*colors, points);
    unsigned char* to = colors->GetPointer(0);
    for (const MeshInstance* const member : _members) {
      const auto color = toBytes(member->color);
      for (vtkIdType point = 0; point < member->geometry->GetNumberOfPoints(); ++point) {
        to = std::ranges::copy(color, to).out;
      }
    }
    return colors;
  }

  static void setScalars(RenderMesh& result, ScalarLocation location, vtkDataArray* scalars,
                         vtkLookupTable* table) {
    scalars->SetName(COLORS);
    result.scalars = {location, COLORS, table};
    dataAt(*result.geometry, location).AddArray(scalars);
  }

  const Members& _members;
  LookupTables& _tables;
};

RenderMesh toRenderMesh(const MeshInstance& mesh, LookupTables& tables) {
  RenderMesh result{mesh.geometry, true, nullptr,        drawnAppearance(mesh.appearance),
                    mesh.color,    {},   mesh.transforms};
  if (mesh.scalars) {
    result.scalars = {mesh.scalars->location, mesh.scalars->arrayName, tables.get(mesh.scalars->table)};
  }
  return result;
}

}  // namespace

RenderMesh merge(const std::vector<const MeshInstance*>& meshes, LookupTables& tables) {
  return meshes.size() == 1 ? toRenderMesh(*meshes.front(), tables) : Merger(meshes, tables).run();
}

}  // namespace vemo
