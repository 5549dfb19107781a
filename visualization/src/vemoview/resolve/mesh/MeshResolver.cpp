#include "vemoview/resolve/mesh/MeshResolver.h"

#include "geometry/CellValidator.h"
#include "geometry/Normals.h"
#include "geometry/drawing/DrawableCells.h"
#include "geometry/drawing/LitFaces.h"
#include "geometry/drawing/PolygonFans.h"
#include "geometry/drawing/PolygonFilling.h"
#include "geometry/drawing/SpikyPolygons.h"
#include "scenegraph/coloring/ColoringScalars.h"
#include "vemoview/resolve/mesh/AppearanceResolver.h"
#include "vemoview/resolve/mesh/ArrayLookup.h"
#include "vemoview/resolve/mesh/PointScaling.h"
#include "vemoview/resolve/mesh/PointSizes.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

#include <algorithm>
#include <fmt/format.h>
#include <optional>
#include <string>
#include <utility>

namespace vemo {

namespace {

bool isVisible(const Appearance& appearance) {
  return appearance.opacity > 0.0 || appearance.hasEdges || appearance.hasContour;
}

/// The kinds of cells that a kind of mesh has.
struct MeshKind {
  Appearance::Kind kind;
  CellKinds cells;
};

/// Lines and points come last: at the same depth they are seen on the faces.
constexpr MeshKind MESH_KINDS[] = {{Appearance::Kind::SURFACE, CellKind::POLYS | CellKind::STRIPS},
                                   {Appearance::Kind::LINES, CellKind::LINES},
                                   {Appearance::Kind::POINTS, CellKind::VERTS}};

bool hasCells(const lum::PolyDataNode& node, CellKinds kinds) {
  return std::ranges::any_of(CELL_KINDS, [&](const CellKindTraits& kind) {
    const vtkCellArray* const cells = kinds.contains(kind.kind) ? node.getCells(kind.kind) : nullptr;
    return cells != nullptr && cells->GetNumberOfCells() > 0;
  });
}

/// Builds the poly data of a node.
class MeshBuilder {
 public:
  MeshBuilder(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& node,
              const VisibleDrawable& context, ColorTables& tables, MeshArrays arrays)
      : _drawable(drawable), _node(node), _context(context), _tables(tables), _arrays(arrays) {}

  /// One mesh for each visible kind; none when nothing is visible.
  std::vector<MeshInstance> build() {
    std::vector<MeshInstance> meshes = describeMeshes();
    if (meshes.empty() || !putCells()) {
      return {};
    }
    putNormals();
    putScalars();
    if (_arrays == MeshArrays::ALL) {
      putAll(_node.getNodeDataArrays(), _geometry->GetNumberOfPoints(), *_geometry->GetPointData());
      putAll(_node.getCellDataArrays(), _geometry->GetNumberOfCells(), *_geometry->GetCellData());
    }
    for (MeshInstance& mesh : meshes) {
      putGeometry(mesh);
      mesh.scalars = _scalars;
    }
    std::erase_if(meshes, [](const MeshInstance& mesh) { return mesh.geometry->GetNumberOfCells() == 0; });
    return meshes;
  }

  /// The array that should colour the meshes, if it is missing; otherwise null.
  const lum::DataArrayAttributes* getMissingArray() const { return _missingArray; }

 private:
  /// All visible kinds for which there are cells, without geometry.
  std::vector<MeshInstance> describeMeshes() const {
    std::vector<MeshInstance> meshes;
    const bool showsPoints = kindOf(_drawable) == Appearance::Kind::POINTS;
    for (const auto& [kind, cells] : MESH_KINDS) {
      if (showsPoints ? kind != Appearance::Kind::POINTS : !hasCells(_node, cells)) {
        continue;
      }
      MeshInstance mesh;
      mesh.drawable = &_drawable;
      mesh.node = &_node;
      mesh.appearance = resolveAppearance(_drawable, kind);
      if (isVisible(mesh.appearance)) {
        mesh.appearance.isClipped = _context.isClipped;
        mesh.color = resolveColor(_drawable, kind, _node.getName());
        mesh.transforms = _context.transforms;
        meshes.push_back(std::move(mesh));
      }
    }
    return meshes;
  }

  bool putCells() {
    if (_node.getPoints() == nullptr) {
      return false;
    }
    vtkNew<vtkPoints> points;
    points->SetData(_node.getPoints());
    _geometry->SetPoints(points);
    for (const CellKindTraits& kind : CELL_KINDS) {
      if (!putCells(kind, points->GetNumberOfPoints())) {
        return false;
      }
    }
    return true;
  }

  bool putCells(const CellKindTraits& kind, vtkIdType pointCount) {
    vtkCellArray* const cells = _node.getCells(kind.kind);
    if (cells == nullptr) {
      return true;
    }
    // Cells with too few points are left out later on.
    const std::string fault =
        CellValidator().findFault(*cells, {.pointCount = pointCount, .mayHaveUnusedIndices = true});
    if (!fault.empty()) {
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    '"' + itemNameOf(_node) + "\" is not drawn: " + kind.name + ": " + fault);
      return false;
    }
    kind.set(*_geometry, cells);
    return true;
  }

  /// Whether an array has a tuple for each point, or cell.
  bool fits(vtkDataArray* array, vtkIdType tuples) const {
    if (array == nullptr || array->GetNumberOfTuples() == tuples) {
      return array != nullptr;
    }
    reportFinding(FindingCode::NOT_COLORED_BY_ARRAY,
                  fmt::format("\"{}\" is drawn without its array \"{}\", which has {} values instead of {}",
                              itemNameOf(_node), array->GetName(), array->GetNumberOfTuples(), tuples));
    return false;
  }

  void putNormals() {
    if (kindOf(_drawable) != Appearance::Kind::SURFACE) {
      return;
    }
    vtkPolyData& geometry = *_geometry;
    vtkDataArray* const atPoints = findArray(_node.getNodeDataArrays(), NORMALS);
    vtkDataArray* const atCells = findArray(_node.getCellDataArrays(), NORMALS);
    if (fits(atPoints, geometry.GetNumberOfPoints()) && atPoints->GetNumberOfComponents() == 3) {
      geometry.GetPointData()->SetNormals(atPoints);
    } else if (fits(atCells, geometry.GetNumberOfCells()) && atCells->GetNumberOfComponents() == 3 &&
               _node.getStrips() == nullptr) {
      // A strip has one normal for many triangles: without it each triangle is
      // drawn with its own.
      geometry.GetCellData()->SetNormals(atCells);
    }
  }

  void putScalars() {
    const auto* const scalars = lum::findColoringScalars(_drawable);
    if (scalars == nullptr) {
      return;
    }
    const bool isAtCells = lum::coloringLocation(_drawable) == lum::DataLocation::CELLS;
    vtkPolyData& geometry = *_geometry;
    vtkDataArray* const array = findArray(isAtCells ? _node.getCellDataArrays() : _node.getNodeDataArrays(),
                                          scalars->hasDataArray()->getDataArrayName());
    if (array == nullptr) {
      _missingArray = scalars->hasDataArray();
      return;
    }
    if (!fits(array, isAtCells ? geometry.GetNumberOfCells() : geometry.GetNumberOfPoints())) {
      return;
    }
    vtkDataSetAttributes* const data =
        isAtCells ? static_cast<vtkDataSetAttributes*>(geometry.GetCellData()) : geometry.GetPointData();
    data->AddArray(array);
    _scalars = ScalarColoring{isAtCells ? ScalarLocation::CELLS : ScalarLocation::POINTS, array->GetName(),
                              _tables.resolve(*scalars->hasColorLookupTable())};
  }

  /// The arrays that fit and that the data do not have yet.
  static void putAll(const lum::ArrayTable& arrays, vtkIdType tuples, vtkDataSetAttributes& data) {
    for (const auto& array : arrays) {
      if (array->GetNumberOfTuples() == tuples && !data.HasArray(array->GetName())) {
        data.AddArray(array);
      }
    }
  }

  /// The drawable cells of the kind that has the appearance.
  void putGeometry(MeshInstance& mesh) {
    const Appearance::Kind kind = mesh.appearance.kind;
    if (kind == Appearance::Kind::POINTS && _node.getVerts() == nullptr) {
      // A point drawable also shows points that no vertex uses.
      if (_scalars && _scalars->location == ScalarLocation::CELLS) {
        reportFinding(
            FindingCode::NOT_COLORED_BY_ARRAY,
            fmt::format(
                "\"{}\" is not coloured by data: its array \"{}\" is over cells, of which it has none",
                itemNameOf(_node), _scalars->arrayName));
        _scalars.reset();
      }
      mesh.geometry = pointsAsVertices(*_geometry);
      return;
    }
    const auto* const cells = std::ranges::find(MESH_KINDS, kind, &MeshKind::kind);
    mesh.geometry = drawableCells(*_geometry, cells->cells);
    if (kind != Appearance::Kind::SURFACE) {
      // Lines and points are not lit as the faces that share their points.
      mesh.geometry = withoutNormals(*mesh.geometry);
    } else if (mesh.appearance.hasFaces && mesh.appearance.opacity > 0.0) {
      unfold(mesh);
      lightBothSides(mesh.geometry);
      if (mesh.filling != nullptr) {
        lightBothSides(mesh.filling);
      }
    }
  }

  void unfold(MeshInstance& mesh) const {
    const std::vector<vtkIdType> folded = unfoldFans(mesh.geometry);
    correctSpikyPolygons(mesh.geometry);
    const bool isByCell = _scalars && _scalars->location == ScalarLocation::CELLS;
    auto [filling, count] =
        fillPolygons(*mesh.geometry, folded, isByCell ? _scalars->arrayName.c_str() : nullptr);
    mesh.filling = filling;
    if (count > 0) {
      reportFinding(
          FindingCode::POLYGONS_FOLDED,
          fmt::format("{} of \"{}\" {} drawn with the wrong shape: intersecting or touching itself, "
                      "concave and not flat, or too intricate",
                      lum::withNoun(std::to_string(count), "polygon"), itemNameOf(_node),
                      count == 1 ? "is" : "are"));
      if (mesh.geometry->GetCellData()->GetNormals() != nullptr) {
        // Their triangles face both ways, or have no normal in common: each is lit with its own.
        mesh.geometry = withoutNormals(*mesh.geometry);
        mesh.filling = withoutNormals(*mesh.filling);
      }
    }
  }

  static vtkSmartPointer<vtkPolyData> withoutNormals(vtkPolyData& geometry) {
    if (geometry.GetPointData()->GetNormals() == nullptr && geometry.GetCellData()->GetNormals() == nullptr) {
      return &geometry;
    }
    auto result = vtkSmartPointer<vtkPolyData>::New();
    result->ShallowCopy(&geometry);
    result->GetPointData()->SetNormals(nullptr);
    result->GetCellData()->SetNormals(nullptr);
    return result;
  }

  const lum::GeometryDrawable& _drawable;
  const lum::PolyDataNode& _node;
  const VisibleDrawable& _context;
  ColorTables& _tables;
  MeshArrays _arrays;
  vtkNew<vtkPolyData> _geometry;
  std::optional<ScalarColoring> _scalars;
  const lum::DataArrayAttributes* _missingArray = nullptr;
};

void reportMissingArray(const lum::GeometryDrawable& drawable, const lum::DataArrayAttributes& array) {
  const NodeScope scope(drawable);
  reportFinding(FindingCode::NOT_COLORED_BY_ARRAY,
                fmt::format("\"{}\" is not coloured by data: it has no array named \"{}\"",
                            itemNameOf(drawable), array.getDataArrayName()));
}

/// The size of points; 0 for that of others, or in model units.
double statedPixels(const Appearance& appearance) {
  return appearance.kind == Appearance::Kind::POINTS && !appearance.isPointSizeInModelUnits
             ? appearance.pointSize
             : 0.0;
}

/// Points that were copied. Very many meshes may share points that cannot all be drawn.
void keepUsedPoints(MeshInstance& mesh) {
  if (mesh.geometry->GetPoints()->GetData() != mesh.node->getPoints()) {
    mesh.pointNumbers = vtkSmartPointer<vtkIdList>::New();
    mesh.geometry = withUsedPoints(*mesh.geometry, *mesh.pointNumbers);
    if (mesh.filling != nullptr) {
      mesh.filling = withUsedPoints(*mesh.filling, *vtkNew<vtkIdList>());
    }
  }
}

/// Of cells and corners.
vtkIdType sizeOf(const vtkCellArray& cells) {
  return cells.GetNumberOfCells() + cells.GetNumberOfConnectivityIds();
}

void require(vtkIdType count, vtkIdType most, const char* what) {
  if (count > most) {
    throw SceneTooLarge("The scene is too large to be drawn: more than " + std::to_string(most) + " " + what);
  }
}

}  // namespace

MeshResolver::MeshResolver(std::size_t clipPlanes, ColorTables& tables, MeshArrays arrays)
    : _tables(tables),
      _arrays(arrays),
      _cutsPerInstance(
          clipPlanes > HARDWARE_CLIP_PLANES ? static_cast<vtkIdType>(clipPlanes - HARDWARE_CLIP_PLANES) : 0) {
}

vtkIdType MeshResolver::timesDrawn(const MeshInstance& mesh) const {
  const auto instances = mesh.transforms == nullptr ? 1 : static_cast<vtkIdType>(mesh.transforms->size());
  return instances * (mesh.appearance.isClipped ? 1 + _cutsPerInstance : 1);
}

/// A small file may have very many meshes share their arrays; drawing takes
/// memory for each of them, and time for each of their instances. Cells that are
/// not drawn are still searched when something is picked.
void MeshResolver::countSize(const MeshInstance& mesh, Load& load) const {
  vtkIdType size = mesh.geometry->GetNumberOfPoints();
  for (const CellKindTraits& kind : CELL_KINDS) {
    const vtkCellArray* const cells = mesh.node->getCells(kind.kind);
    size += cells != nullptr ? sizeOf(*cells) : 0;
  }
  size += mesh.filling != nullptr ? sizeOf(*mesh.filling->GetPolys()) : 0;
  load.size += size * timesDrawn(mesh);
  require(load.size, 200'000'000, "points, cells and corners");
}

void MeshResolver::countCopies(const MeshInstance& mesh, Load& load) const {
  load.copies += timesDrawn(mesh) - 1;
  require(load.copies, 50'000, "copies of meshes");
}

void MeshResolver::resolve(const lum::GeometryDrawable& drawable, const VisibleDrawable& context, Load& load,
                           std::vector<MeshInstance>& meshes) const {
  const lum::DataArrayAttributes* missing = nullptr;
  bool isColored = false;
  for (const auto& node : drawable.getNodes()) {
    const auto* const polyData = dynamic_cast<const lum::PolyDataNode*>(node.get());
    if (polyData == nullptr) {
      continue;
    }
    const NodeScope scope(*polyData);
    MeshBuilder builder(drawable, *polyData, context, _tables, _arrays);
    for (MeshInstance& mesh : builder.build()) {
      isColored = isColored || mesh.scalars;
      countSize(mesh, load);
      for (MeshInstance& part : splitBySize(std::move(mesh), drawable, *polyData)) {
        keepUsedPoints(part);
        reportIfTooLarge(*polyData, statedPixels(part.appearance));
        countCopies(part, load);
        meshes.push_back(std::move(part));
      }
    }
    missing = missing == nullptr ? builder.getMissingArray() : missing;
  }
  // Of several meshes of a drawable, one may have no data.
  if (missing != nullptr && !isColored) {
    reportMissingArray(drawable, *missing);
  }
}

std::vector<MeshInstance> MeshResolver::resolve(const std::vector<VisibleDrawable>& drawables) {
  std::vector<MeshInstance> meshes;
  Load load = _load;
  for (const VisibleDrawable& visible : drawables) {
    if (const auto* const geometry = dynamic_cast<const lum::GeometryDrawable*>(visible.drawable)) {
      resolve(*geometry, visible, load, meshes);
    }
  }
  _load = load;
  return meshes;
}

}  // namespace vemo
