#include "vemoview/resolve/mesh/MeshResolver.h"

#include "base/Utf8.h"
#include "geometry/Normals.h"
#include "geometry/data/NamedArrays.h"
#include "scenegraph/coloring/ColoringScalars.h"
#include "vemoview/resolve/mesh/AppearanceResolver.h"
#include "vemoview/resolve/mesh/ArrayLookup.h"
#include "vemoview/resolve/mesh/PointSizes.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/ClipPlane.h>
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

/// How the kinds of cells of a node are seen: those that there are, and that are visible.
std::vector<Appearance> visibleKinds(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& node) {
  std::vector<Appearance> result;
  const bool showsPoints = kindOf(drawable) == Appearance::Kind::POINTS;
  for (const auto& [kind, cells] : MESH_KINDS) {
    if (showsPoints ? kind != Appearance::Kind::POINTS : !hasCells(node, cells)) {
      continue;
    }
    if (const Appearance appearance = resolveAppearance(drawable, kind); isVisible(appearance)) {
      result.push_back(appearance);
    }
  }
  return result;
}

/// Calls visit(const lum::PolyDataNode&) for each that a drawable owns.
template <class Visit>
void forEachPolyData(const lum::GeometryDrawable& drawable, Visit&& visit) {
  for (const auto& node : drawable.getNodes()) {
    if (const auto* const polyData = dynamic_cast<const lum::PolyDataNode*>(node.get())) {
      visit(*polyData);
    }
  }
}

/// Calls visit(const lum::GeometryDrawable&, const VisibleDrawable&) for each.
template <class Visit>
void forEachGeometry(const std::vector<VisibleDrawable>& drawables, Visit&& visit) {
  for (const VisibleDrawable& visible : drawables) {
    if (const auto* const geometry = dynamic_cast<const lum::GeometryDrawable*>(visible.drawable)) {
      visit(*geometry, visible);
    }
  }
}

/// Builds the poly data of a node.
class MeshBuilder {
 public:
  MeshBuilder(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& node,
              const VisibleDrawable& context, ColorTables& tables, MeshArrays arrays,
              PreparedMeshes& prepared)
      : _drawable(drawable),
        _node(node),
        _context(context),
        _tables(tables),
        _arrays(arrays),
        _prepared(prepared) {}

  /// One mesh for each visible kind; none when nothing is visible.
  std::vector<MeshInstance> build() {
    std::vector<MeshInstance> meshes = describeMeshes();
    reportIfWithoutCells();
    if (meshes.empty() || !putCells()) {
      return {};
    }
    reportCellsNotDrawn();
    putNormals();
    putScalars();
    if (_arrays == MeshArrays::ALL) {
      putAll(_node.getNodeDataArrays(), _geometry->GetNumberOfPoints(), *_geometry->GetPointData());
      putAll(_node.getCellDataArrays(), _geometry->GetNumberOfCells(), *_geometry->GetCellData());
    }
    _geometry = _prepared.share(*_geometry);
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
  /// Without geometry.
  std::vector<MeshInstance> describeMeshes() const {
    std::vector<MeshInstance> meshes;
    for (const Appearance& appearance : visibleKinds(_drawable, _node)) {
      MeshInstance& mesh = meshes.emplace_back();
      mesh.drawable = &_drawable;
      mesh.node = &_node;
      mesh.appearance = appearance;
      mesh.appearance.isClipped = _context.isClipped;
      mesh.color = resolveColor(_drawable, appearance.kind, _node.getName());
      mesh.transforms = _context.transforms;
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
        _prepared.findFault(*cells, {.pointCount = pointCount, .mayHaveUnusedIndices = true});
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
    reportFinding(
        FindingCode::NOT_COLORED_BY_ARRAY,
        fmt::format("\"{}\" is drawn without its array \"{}\", which has {} values instead of {}",
                    itemNameOf(_node), shortName(array->GetName()), array->GetNumberOfTuples(), tuples));
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

  const lum::ArrayTable& arraysAt(bool isAtCells) const {
    return isAtCells ? _node.getCellDataArrays() : _node.getNodeDataArrays();
  }

  /// All meshes of a drawable are coloured over points, or all over cells. An array in neither place is
  /// reported once for the drawable, unless another of its meshes has it.
  void handleMissing(const lum::DataArrayAttributes& array, bool isAtCells) {
    const std::string& name = array.getDataArrayName();
    if (findArray(arraysAt(!isAtCells), name) == nullptr) {
      _missingArray = &array;
      return;
    }
    reportFinding(
        FindingCode::NOT_COLORED_BY_ARRAY,
        fmt::format("\"{}\" is not coloured by data: its array \"{}\" is over {}", itemNameOf(_node),
                    shortName(name), isAtCells ? "points instead of cells" : "cells instead of points"));
  }

  void putScalars() {
    const auto* const scalars = lum::findColoringScalars(_drawable);
    if (scalars == nullptr) {
      return;
    }
    const bool isAtCells = lum::coloringLocation(_drawable) == lum::DataLocation::CELLS;
    vtkPolyData& geometry = *_geometry;
    vtkDataArray* const array = findArray(arraysAt(isAtCells), scalars->hasDataArray()->getDataArrayName());
    if (array == nullptr) {
      handleMissing(*scalars->hasDataArray(), isAtCells);
      return;
    }
    if (!fits(array, isAtCells ? geometry.GetNumberOfCells() : geometry.GetNumberOfPoints())) {
      return;
    }
    vtkDataSetAttributes* const data =
        isAtCells ? static_cast<vtkDataSetAttributes*>(geometry.GetCellData()) : geometry.GetPointData();
    data->AddArray(array);
    auto table = _tables.resolve(*scalars->hasColorLookupTable());
    const bool isTranslucent = _tables.isTranslucent(*table);
    _scalars = ScalarColoring{isAtCells ? ScalarLocation::CELLS : ScalarLocation::POINTS, array->GetName(),
                              std::move(table), isTranslucent};
  }

  /// The arrays that fit and that the data do not have yet; of several of a name the first.
  static void putAll(const lum::ArrayTable& arrays, vtkIdType tuples, vtkDataSetAttributes& data) {
    NamedArrays fitting;
    for (const auto& array : arrays) {
      if (array->GetNumberOfTuples() == tuples && !fitting.find(NamedArrays::nameOf(*array))) {
        fitting.put(*array);
      }
    }
    fitting.addTo(data);
  }

  /// The drawable cells of the kind that has the appearance.
  void putGeometry(MeshInstance& mesh) {
    const Appearance& appearance = mesh.appearance;
    // A point drawable without vertices shows all its points.
    const bool isOfAllPoints =
        appearance.kind == Appearance::Kind::POINTS && !hasCells(_node, CellKind::VERTS);
    if (isOfAllPoints && isColoredByCell()) {
      reportFinding(
          FindingCode::NOT_COLORED_BY_ARRAY,
          fmt::format("\"{}\" is not coloured by data: its array \"{}\" is over cells, of which it has none",
                      itemNameOf(_node), shortName(_scalars->arrayName)));
      _scalars.reset();
    }
    const bool hasFaces = appearance.hasFaces && appearance.opacity > 0.0;
    const PreparedMesh& prepared = _prepared.prepare(
        *_geometry,
        {appearance.kind, isOfAllPoints, hasFaces, isColoredByCell() ? _scalars->arrayName : std::string()});
    mesh.geometry = prepared.geometry;
    mesh.filling = prepared.filling;
    reportMisshapen(prepared.misshapenPolygons);
  }

  /// Only a point drawable shows points without cells.
  void reportIfWithoutCells() const {
    if (kindOf(_drawable) != Appearance::Kind::POINTS && _node.getPoints() != nullptr &&
        _node.getPoints()->GetNumberOfTuples() > 0 &&
        !hasCells(_node, CellKind::VERTS | CellKind::LINES | CellKind::POLYS | CellKind::STRIPS)) {
      reportFinding(FindingCode::GEOMETRY_NOT_DRAWN,
                    fmt::format("\"{}\" is not drawn: its points have no cells", itemNameOf(_node)));
    }
  }

  void reportCellsNotDrawn() const {
    if (kindOf(_drawable) == Appearance::Kind::POINTS &&
        hasCells(_node, CellKind::LINES | CellKind::POLYS | CellKind::STRIPS)) {
      reportFinding(
          FindingCode::GEOMETRY_NOT_DRAWN,
          fmt::format("The lines and faces of \"{}\" are not drawn: only its points are", itemNameOf(_node)));
    }
  }

  bool isColoredByCell() const { return _scalars && _scalars->location == ScalarLocation::CELLS; }

  void reportMisshapen(vtkIdType count) const {
    if (count > 0) {
      reportFinding(
          FindingCode::POLYGONS_FOLDED,
          fmt::format("{} of \"{}\" {} drawn with the wrong shape: intersecting or touching itself, "
                      "concave and not flat, or too intricate",
                      lum::withNoun(std::to_string(count), "polygon"), itemNameOf(_node),
                      count == 1 ? "is" : "are"));
    }
  }

  const lum::GeometryDrawable& _drawable;
  const lum::PolyDataNode& _node;
  const VisibleDrawable& _context;
  ColorTables& _tables;
  MeshArrays _arrays;
  PreparedMeshes& _prepared;
  vtkSmartPointer<vtkPolyData> _geometry = vtkSmartPointer<vtkPolyData>::New();
  std::optional<ScalarColoring> _scalars;
  const lum::DataArrayAttributes* _missingArray = nullptr;
};

void reportMissingArray(const lum::GeometryDrawable& drawable, const lum::DataArrayAttributes& array) {
  const NodeScope scope(drawable);
  reportFinding(FindingCode::NOT_COLORED_BY_ARRAY,
                fmt::format("\"{}\" is not coloured by data: it has no array named \"{}\"",
                            itemNameOf(drawable), shortName(array.getDataArrayName())));
}

/// Colours by data need an array; without a colour table they are those of plain geometry.
void reportUnnamedArray(const lum::GeometryDrawable& drawable) {
  const auto* const colors = drawable.findAttributes<lum::ColorAttributes>();
  const auto* const scalars = drawable.findAttributes<lum::ScalarAttributes>();
  if (colors != nullptr && colors->getColorMode() == lum::ColorMode::DATA &&
      (scalars == nullptr || scalars->hasDataArray() == nullptr)) {
    const NodeScope scope(drawable);
    reportFinding(
        FindingCode::NOT_COLORED_BY_ARRAY,
        fmt::format("\"{}\" is not coloured by data: it does not name an array", itemNameOf(drawable)));
  }
}

/// The size of points; 0 for that of others, or in model units.
double statedPixels(const Appearance& appearance) {
  return appearance.kind == Appearance::Kind::POINTS && !appearance.isPointSizeInModelUnits
             ? appearance.pointSize
             : 0.0;
}

/// Whether its cells use less than half of very many points.
bool usesFewPoints(vtkPolyData& geometry) {
  constexpr vtkIdType MANY = 1000;
  const vtkIdType points = geometry.GetNumberOfPoints();
  vtkIdType corners = 0;
  for (const CellKindTraits& kind : CELL_KINDS) {
    corners += kind.get(geometry)->GetNumberOfConnectivityIds();
  }
  return points > MANY && 2 * corners < points;
}

/// Points that were copied, or of which few are drawn: very many meshes may share them, and OpenGL has
/// those of each mesh.
void keepUsedPoints(MeshInstance& mesh, MeshArrays arrays, PreparedMeshes& prepared) {
  const bool areCopied = mesh.geometry->GetPoints()->GetData() != mesh.node->getPoints();
  if (areCopied || (arrays == MeshArrays::DRAWN && usesFewPoints(*mesh.geometry))) {
    const PreparedMeshes::UsedPoints& used = prepared.withUsedPoints(*mesh.geometry);
    mesh.geometry = used.geometry;
    mesh.pointNumbers = used.numbers;
    if (mesh.filling != nullptr) {
      mesh.filling = prepared.withUsedPoints(*mesh.filling).geometry;
    }
  }
}

}  // namespace

MeshResolver::MeshResolver(std::size_t clipPlanes, ColorTables& tables, const ResolveOptions& options)
    : _tables(tables),
      _arrays(options.arrays),
      _pixelScale(options.view.pixelScale),
      _cutsPerInstance(
          clipPlanes > HARDWARE_CLIP_PLANES ? static_cast<vtkIdType>(clipPlanes - HARDWARE_CLIP_PLANES) : 0) {
}

vtkIdType MeshResolver::timesDrawn(const SharedInstanceTransforms& transforms, bool isClipped) const {
  const auto instances = transforms == nullptr ? 1 : static_cast<vtkIdType>(transforms->size());
  return instances * (isClipped ? 1 + _cutsPerInstance : 1);
}

/// Before anything is prepared: the sizes are known. Cells that are not drawn are still searched when
/// something is picked.
void MeshResolver::countSizes(const std::vector<VisibleDrawable>& drawables) {
  const lum::PolyDataNode* largest = nullptr;
  vtkIdType mostDrawn = 0;
  forEachGeometry(drawables, [&](const lum::GeometryDrawable& drawable, const VisibleDrawable& context) {
    forEachPolyData(drawable, [&](const lum::PolyDataNode& node) {
      const auto kinds = static_cast<vtkIdType>(visibleKinds(drawable, node).size());
      const vtkIdType drawn = sizeOf(node) * kinds * timesDrawn(context.transforms, context.isClipped);
      if (drawn > 0) {
        _load.content += _content.add(node);
        _load.drawn += drawn;
      }
      if (drawn > mostDrawn) {
        mostDrawn = drawn;
        largest = &node;
      }
    });
  });
  if (largest != nullptr) {
    _load.requireDrawn(*largest);
  }
}

/// Triangles in place of polygons are known only now.
void MeshResolver::countFilling(const MeshInstance& mesh) {
  if (mesh.filling != nullptr) {
    _load.drawn += sizeOf(*mesh.filling->GetPolys()) * timesDrawn(mesh.transforms, mesh.appearance.isClipped);
    _load.requireDrawn(*mesh.node);
  }
}

void MeshResolver::countCopies(const MeshInstance& mesh) {
  _load.copies += timesDrawn(mesh.transforms, mesh.appearance.isClipped) - 1;
  _load.requireCopies();
}

void MeshResolver::countMade(const lum::PolyDataNode& node) {
  _load.made = _prepared.getMade() + _sizes.getMade();
  _load.requireMade(node);
}

void MeshResolver::add(const lum::GeometryDrawable& drawable, const VisibleDrawable& context,
                       std::vector<MeshInstance>& meshes) {
  const lum::DataArrayAttributes* missing = nullptr;
  bool isColored = false;
  forEachPolyData(drawable, [&](const lum::PolyDataNode& node) {
    const NodeScope scope(node);
    MeshBuilder builder(drawable, node, context, _tables, _arrays, _prepared);
    for (MeshInstance& mesh : builder.build()) {
      isColored = isColored || mesh.scalars;
      add(std::move(mesh), drawable, meshes);
    }
    missing = missing == nullptr ? builder.getMissingArray() : missing;
  });
  // Of several meshes of a drawable, one may have no data.
  if (missing != nullptr && !isColored) {
    reportMissingArray(drawable, *missing);
  }
  reportUnnamedArray(drawable);
}

void MeshResolver::add(MeshInstance mesh, const lum::GeometryDrawable& drawable,
                       std::vector<MeshInstance>& meshes) {
  const lum::PolyDataNode& node = *mesh.node;
  countFilling(mesh);
  for (MeshInstance& part : _sizes.split(std::move(mesh), drawable)) {
    keepUsedPoints(part, _arrays, _prepared);
    reportIfTooLarge(node, statedPixels(part.appearance) * _pixelScale);
    countCopies(part);
    meshes.push_back(std::move(part));
  }
  countMade(node);
}

std::vector<MeshInstance> MeshResolver::resolve(const std::vector<VisibleDrawable>& drawables) {
  _formerLoad = _load;
  _content.accept();
  // In this order: they keep what they were made of.
  _prepared.dropUnusedPoints();
  _sizes.dropUnused();
  _prepared.dropUnused();
  std::vector<MeshInstance> meshes;
  try {
    countSizes(drawables);
    _prepared.limitMade(_load.mostMade());
    forEachGeometry(drawables, [&](const lum::GeometryDrawable& drawable, const VisibleDrawable& context) {
      add(drawable, context, meshes);
    });
  } catch (...) {
    takeBack();
    throw;
  }
  return meshes;
}

void MeshResolver::takeBack() {
  _load = _formerLoad;
  _content.takeBack();
}

}  // namespace vemo
