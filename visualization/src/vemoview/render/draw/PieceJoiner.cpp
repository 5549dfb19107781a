#include "vemoview/render/draw/PieceJoiner.h"

#include <vemo/geometry/CellKind.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <tuple>

namespace vemo {

namespace {

constexpr const char* COLORS = "Colors";
constexpr int CHANNELS = 4;

/// A piece with more points or cells than this is worth a stroke of its own.
constexpr vtkIdType SMALL = 10000;
/// So many points, at least, and a group is full.
constexpr vtkIdType FULL = 200000;
/// Fewer pieces are not worth their joining.
constexpr std::size_t FEW = 16;

using Members = std::vector<const Piece*>;

bool hasCellColors(const Piece& piece) {
  return piece.coloring == Piece::Coloring::CELL_SCALARS;
}

bool hasPointScalars(const Piece& piece) {
  return piece.coloring == Piece::Coloring::POINT_SCALARS;
}

vtkDataArray* scalarsOf(const Piece& piece) {
  vtkDataSetAttributes* const data = hasCellColors(piece)
                                         ? static_cast<vtkDataSetAttributes*>(piece.geometry->GetCellData())
                                         : piece.geometry->GetPointData();
  return data->GetArray(piece.scalars.c_str());
}

/// What the values at points are, between which a face has further ones: it
/// needs the values themselves, and one table for all.
auto pointScalars(const Piece& piece) {
  const bool isByPoints = hasPointScalars(piece);
  vtkDataArray* const scalars = isByPoints ? scalarsOf(piece) : nullptr;
  return std::make_tuple(isByPoints ? piece.table.Get() : nullptr, isByPoints ? scalars->GetDataType() : 0,
                         isByPoints ? scalars->GetNumberOfComponents() : 0);
}

/// Pieces with the same answer can be drawn at one stroke.
auto likeness(const Piece& piece) {
  const Appearance& look = piece.appearance;
  vtkPolyData& geometry = *piece.geometry;
  return std::make_tuple(
      look.kind, look.hasFaces, look.hasEdges, look.hasContour, look.isClipped, look.edgeColor.values,
      look.opacity, look.lineWidth, look.pointSize, look.hasModelSize, look.ambient, look.diffuse,
      look.specular, look.specularPower, piece.placements.get(), hasCellColors(piece), pointScalars(piece),
      geometry.GetPoints()->GetDataType(), geometry.GetPointData()->GetNormals() != nullptr,
      geometry.GetCellData()->GetNormals() != nullptr);
}

bool isSmall(const Piece& piece) {
  return std::max(piece.geometry->GetNumberOfPoints(), piece.geometry->GetNumberOfCells()) <= SMALL;
}

/// The numbers of the small pieces, in groups that look alike.
std::vector<std::vector<std::size_t>> groupSmallPieces(const std::vector<Piece>& pieces) {
  struct Group {
    std::size_t index;
    vtkIdType points;
  };
  std::vector<std::vector<std::size_t>> groups;
  std::map<decltype(likeness(pieces.front())), Group> open;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!isSmall(pieces[i])) {
      continue;
    }
    const auto [place, isNew] = open.try_emplace(likeness(pieces[i]), Group{groups.size(), 0});
    Group& group = place->second;
    if (isNew || group.points >= FULL) {
      group = {groups.size(), 0};
      groups.emplace_back();
    }
    groups[group.index].push_back(i);
    group.points += pieces[i].geometry->GetNumberOfPoints();
  }
  return groups;
}

/// A run of tuples of an array.
struct Run {
  vtkDataArray* array;
  vtkIdType first;
  vtkIdType count;
};

/// One array of all the runs; of the type and name of the first.
vtkSmartPointer<vtkDataArray> concatenate(const std::vector<Run>& runs) {
  vtkDataArray& model = *runs.front().array;
  auto result = vtk::TakeSmartPointer(model.NewInstance());
  vtkIdType total = 0;
  for (const Run& run : runs) {
    total += run.count;
  }
  result->SetName(model.GetName());
  result->SetNumberOfComponents(model.GetNumberOfComponents());
  result->SetNumberOfTuples(total);
  vtkIdType place = 0;
  for (const Run& run : runs) {
    if (run.count > 0) {
      result->InsertTuples(place, run.count, run.first, run.array);
      place += run.count;
    }
  }
  return result;
}

class Joiner {
 public:
  explicit Joiner(const Members& members) : _members(members) {}

  Piece join() {
    Piece result;
    result.appearance = first().appearance;
    result.placements = first().placements;
    result.geometry = vtkSmartPointer<vtkPolyData>::New();
    vtkNew<vtkPoints> points;
    points->SetData(
        joinPointArrays([](const Piece& piece) { return piece.geometry->GetPoints()->GetData(); }));
    result.geometry->SetPoints(points);
    for (const CellKindTraits& kind : CELL_KINDS) {
      kind.set(*result.geometry, joinCells(kind));
    }
    joinNormals(*result.geometry);
    joinColors(result);
    return result;
  }

 private:
  const Piece& first() const { return *_members.front(); }

  template <class GetArray>
  vtkSmartPointer<vtkDataArray> joinPointArrays(GetArray&& getArray) const {
    std::vector<Run> runs;
    for (const Piece* const member : _members) {
      runs.push_back({getArray(*member), 0, member->geometry->GetNumberOfPoints()});
    }
    return concatenate(runs);
  }

  /// All vertices come first, then all lines, and so on; so do their tuples.
  template <class GetArray>
  vtkSmartPointer<vtkDataArray> joinCellArrays(GetArray&& getArray) const {
    std::vector<Run> runs;
    std::vector<vtkIdType> places(_members.size(), 0);
    for (const CellKindTraits& kind : CELL_KINDS) {
      for (std::size_t i = 0; i < _members.size(); ++i) {
        const Piece& piece = *_members[i];
        const vtkIdType count = kind.get(*piece.geometry)->GetNumberOfCells();
        runs.push_back({getArray(piece), places[i], count});
        places[i] += count;
      }
    }
    return concatenate(runs);
  }

  vtkSmartPointer<vtkCellArray> joinCells(const CellKindTraits& kind) const {
    vtkIdType cells = 0;
    vtkIdType indices = 0;
    for (const Piece* const member : _members) {
      vtkCellArray& from = *kind.get(*member->geometry);
      cells += from.GetNumberOfCells();
      indices += from.GetNumberOfConnectivityIds();
    }
    auto joined = vtkSmartPointer<vtkCellArray>::New();
    joined->Use32BitStorage();
    joined->AllocateExact(cells, indices);
    vtkIdType firstPoint = 0;
    for (const Piece* const member : _members) {
      vtkPolyData& from = *member->geometry;
      joined->Append(kind.get(from), firstPoint);
      firstPoint += from.GetNumberOfPoints();
    }
    return joined;
  }

  void joinNormals(vtkPolyData& geometry) const {
    if (first().geometry->GetPointData()->GetNormals() != nullptr) {
      geometry.GetPointData()->SetNormals(
          joinPointArrays([](const Piece& piece) { return piece.geometry->GetPointData()->GetNormals(); }));
    }
    if (first().geometry->GetCellData()->GetNormals() != nullptr) {
      geometry.GetCellData()->SetNormals(
          joinCellArrays([](const Piece& piece) { return piece.geometry->GetCellData()->GetNormals(); }));
    }
  }

  /// The bytes of one piece's colours: red, green, blue, alpha.
  static vtkSmartPointer<vtkUnsignedCharArray> colorsOf(const Piece& piece) {
    if (hasCellColors(piece)) {
      return vtk::TakeSmartPointer(piece.table->MapScalars(scalarsOf(piece), VTK_COLOR_MODE_MAP_SCALARS, -1));
    }
    auto colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
    colors->SetNumberOfComponents(CHANNELS);
    colors->SetNumberOfTuples(piece.geometry->GetNumberOfPoints());
    for (int channel = 0; channel < CHANNELS; ++channel) {
      const double value = channel < 3 ? piece.appearance.color[static_cast<std::size_t>(channel)] : 1.0;
      colors->FillTypedComponent(channel, static_cast<unsigned char>(std::lround(value * 255.0)));
    }
    return colors;
  }

  void joinColors(Piece& result) const {
    if (hasPointScalars(first())) {
      result.table = first().table;
      setScalars(result, Piece::Coloring::POINT_SCALARS, joinPointArrays(scalarsOf));
      return;
    }
    std::map<const Piece*, vtkSmartPointer<vtkUnsignedCharArray>> colors;
    for (const Piece* const member : _members) {
      colors[member] = colorsOf(*member);
    }
    const auto getColors = [&colors](const Piece& piece) { return colors.at(&piece).Get(); };
    if (hasCellColors(first())) {
      setScalars(result, Piece::Coloring::CELL_SCALARS, joinCellArrays(getColors));
    } else {
      setScalars(result, Piece::Coloring::POINT_SCALARS, joinPointArrays(getColors));
    }
  }

  static void setScalars(Piece& result, Piece::Coloring coloring, vtkDataArray* scalars) {
    scalars->SetName(COLORS);
    result.coloring = coloring;
    result.scalars = COLORS;
    vtkPolyData& geometry = *result.geometry;
    vtkDataSetAttributes* const data = coloring == Piece::Coloring::CELL_SCALARS
                                           ? static_cast<vtkDataSetAttributes*>(geometry.GetCellData())
                                           : geometry.GetPointData();
    data->AddArray(scalars);
  }

  const Members& _members;
};

}  // namespace

std::vector<std::vector<Piece>> groupForJoining(std::vector<Piece> pieces) {
  // The first of the group that each piece is in.
  std::vector<std::size_t> leaders(pieces.size());
  std::iota(leaders.begin(), leaders.end(), std::size_t{0});
  for (const auto& group : groupSmallPieces(pieces)) {
    if (group.size() >= FEW) {
      for (const std::size_t member : group) {
        leaders[member] = group.front();
      }
    }
  }
  std::vector<std::vector<Piece>> result;
  std::vector<std::size_t> places(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (leaders[i] == i) {
      places[i] = result.size();
      result.emplace_back();
    }
    result[places[leaders[i]]].push_back(std::move(pieces[i]));
  }
  return result;
}

Piece join(const std::vector<const Piece*>& members) {
  return members.size() == 1 ? *members.front() : Joiner(members).join();
}

}  // namespace vemo
