#include "vemoview/render/resolve/Piece.h"

#include "geometry/CellValidator.h"
#include "geometry/DrawableCells.h"
#include "geometry/Normals.h"
#include "vemoview/render/resolve/ColorTable.h"
#include "vemoview/render/resolve/PointSizes.h"
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <optional>
#include <string>

namespace vemo {

namespace {

/// The poly data of one node with no arrays but those that are drawn.
class PieceBuilder {
 public:
  PieceBuilder(const lum::GeometryDrawable& drawable, const lum::PolyDataNode& node,
               const VisibleDrawable& situation)
      : _drawable(drawable), _node(node) {
    _piece.drawable = &drawable;
    _piece.node = &node;
    _piece.appearance = Appearance::of(drawable, node);
    _piece.appearance.isClipped = situation.isClipped;
    _piece.placements = situation.placements;
  }

  /// Nothing when there is nothing to be seen.
  std::optional<Piece> build() {
    if (_piece.appearance.opacity <= 0.0 || !putCells()) {
      return std::nullopt;
    }
    if (_piece.appearance.kind == Appearance::Kind::SURFACE) {
      putNormals();
    }
    putScalars();
    selectCells();
    if (_piece.geometry->GetNumberOfCells() == 0) {
      return std::nullopt;
    }
    return std::move(_piece);
  }

 private:
  bool putCells() {
    if (_node.getPoints() == nullptr || _node.getPoints()->GetNumberOfComponents() != 3) {
      return false;
    }
    _piece.geometry = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    points->SetData(_node.getPoints());
    _piece.geometry->SetPoints(points);
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
      VEMO_LOG_WARNING("\"" << _node.getName() << "\" is not drawn: " << kind.name << ": " << fault);
      return false;
    }
    kind.set(*_piece.geometry, cells);
    return true;
  }

  /// Whether an array has a tuple for each point, or cell.
  bool fits(vtkDataArray* array, vtkIdType tuples) const {
    if (array == nullptr || (array->GetNumberOfTuples() == tuples && array->GetNumberOfComponents() > 0)) {
      return array != nullptr;
    }
    VEMO_LOG_WARNING("\"" << _node.getName() << "\" is drawn without its array \"" << array->GetName()
                          << "\" of " << array->GetNumberOfTuples() << " values for " << tuples);
    return false;
  }

  void putNormals() {
    vtkPolyData& geometry = *_piece.geometry;
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
    const auto* const colors = _drawable.findAttributes<lum::ColorAttributes>();
    const auto* const scalars = _drawable.findAttributes<lum::ScalarAttributes>();
    if (colors == nullptr || colors->getColorMode() != lum::ColorMode::DATA || scalars == nullptr ||
        scalars->hasDataArray() == nullptr) {
      return;
    }
    const auto* const location = _drawable.findAttributes<lum::DataLocationAttributes>();
    const bool isAtCells = location != nullptr && location->getDataLocation() == lum::DataLocation::CELLS;
    vtkPolyData& geometry = *_piece.geometry;
    vtkDataArray* const array = findArray(isAtCells ? _node.getCellDataArrays() : _node.getNodeDataArrays(),
                                          scalars->hasDataArray()->getDataArrayName());
    if (!fits(array, isAtCells ? geometry.GetNumberOfCells() : geometry.GetNumberOfPoints())) {
      return;
    }
    vtkDataSetAttributes* const data =
        isAtCells ? static_cast<vtkDataSetAttributes*>(geometry.GetCellData()) : geometry.GetPointData();
    data->AddArray(array);
    _piece.scalars = array->GetName();
    _piece.coloring = isAtCells ? Piece::Coloring::CELL_SCALARS : Piece::Coloring::POINT_SCALARS;
    _piece.table = makeLookupTable(scalars->hasColorLookupTable(), *array);
  }

  /// Leaves what the drawable's kind shows, and of that what can be drawn.
  void selectCells() {
    vtkPolyData& geometry = *_piece.geometry;
    if (_piece.appearance.kind != Appearance::Kind::POINTS) {
      _piece.geometry = drawableCells(geometry);
    } else if (_node.getVerts() != nullptr) {
      _piece.geometry = drawableCells(geometry, CellKind::VERTS);
    } else {
      // Points that no vertex names are still what a point drawable is for.
      _piece.geometry = pointsAsVertices(geometry);
      if (_piece.coloring == Piece::Coloring::CELL_SCALARS) {
        _piece.coloring = Piece::Coloring::PLAIN;
        _piece.table = nullptr;
      }
    }
  }

  const lum::GeometryDrawable& _drawable;
  const lum::PolyDataNode& _node;
  Piece _piece;
};

void require(vtkIdType count, vtkIdType most, const char* what) {
  if (count > most) {
    throw RenderError("The scene is too large to be drawn: more than " + std::to_string(most) + " " + what);
  }
}

}  // namespace

vtkDataArray* findArray(const lum::ArrayTable& table, const std::string& name) {
  const auto found = std::ranges::find_if(table, [&](const vtkSmartPointer<vtkDataArray>& array) {
    return array->GetName() != nullptr && array->GetName() == name;
  });
  return found == table.end() ? nullptr : found->Get();
}

const Box& Piece::getBounds() const {
  if (_bounds.isEmpty()) {
    _bounds = finiteBounds(*geometry->GetPoints()->GetData());
  }
  return _bounds;
}

vtkIdType PieceCollector::timesDrawn(const Piece& piece) const {
  const auto copies = piece.placements == nullptr ? 1 : static_cast<vtkIdType>(piece.placements->size());
  return copies * (piece.appearance.isClipped ? 1 + _cutsPerCopy : 1);
}

/// A small file may have very many pieces share their arrays; what is drawn
/// takes memory for each of them, and time for each of their copies. Cells that
/// are not drawn are still looked through when something is picked.
void PieceCollector::countSize(const Piece& piece, Load& load) const {
  vtkIdType size = piece.geometry->GetNumberOfPoints();
  for (const CellKindTraits& kind : CELL_KINDS) {
    vtkCellArray* const cells = piece.node->getCells(kind.kind);
    size += cells != nullptr ? cells->GetNumberOfCells() + cells->GetNumberOfConnectivityIds() : 0;
  }
  load.size += size * timesDrawn(piece);
  require(load.size, 200'000'000, "points, cells and corners");
}

void PieceCollector::countCopies(const Piece& piece, Load& load) const {
  load.copies += timesDrawn(piece) - 1;
  require(load.copies, 50'000, "copies of pieces");
}

void PieceCollector::shareTable(Piece& piece) {
  if (piece.table == nullptr) {
    return;
  }
  vtkLookupTable& table = *piece.table;
  std::string content = table.GetClassName();
  content.append(reinterpret_cast<const char*>(table.GetRange()), 2 * sizeof(double));
  content.append(reinterpret_cast<const char*>(table.GetPointer(0)),
                 static_cast<std::size_t>(table.GetTable()->GetNumberOfValues()));
  piece.table = _tables.try_emplace(content, piece.table).first->second;
}

std::vector<Piece> PieceCollector::collect(const std::vector<VisibleDrawable>& drawables) {
  std::vector<Piece> pieces;
  Load load = _load;
  for (const VisibleDrawable& visible : drawables) {
    const auto* const geometry = dynamic_cast<const lum::GeometryDrawable*>(visible.drawable);
    if (geometry == nullptr) {
      continue;
    }
    for (const auto& node : geometry->getNodes()) {
      const auto* const polyData = dynamic_cast<const lum::PolyDataNode*>(node.get());
      if (polyData == nullptr) {
        continue;
      }
      if (auto piece = PieceBuilder(*geometry, *polyData, visible).build()) {
        countSize(*piece, load);
        shareTable(*piece);
        for (Piece& part : splitBySize(std::move(*piece), *geometry, *polyData)) {
          countCopies(part, load);
          pieces.push_back(std::move(part));
        }
      }
    }
  }
  _load = load;
  return pieces;
}

}  // namespace vemo
