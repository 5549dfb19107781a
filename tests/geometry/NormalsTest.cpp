#include "geometry/Normals.h"
#include "support/Meshes.h"
#include <vemo/base/Vector.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyDataNormals.h>
#include <vtkSphereSource.h>
#include <vtkVersionMacros.h>

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>
#include <tuple>

namespace vemo {

namespace {

using testing::ElementsAre;
using Points = std::vector<std::array<float, 3>>;
using Values = std::vector<float>;

// Our normals are those of VTK 9.1 in any version of VTK. The filter of VTK 9.3
// rounds differently, and also differs at polygons that are not flat.
constexpr bool IS_OUR_FILTER = VTK_MAJOR_VERSION == 9 && VTK_MINOR_VERSION == 1;
constexpr float TOLERANCE = IS_OUR_FILTER ? 0.0F : 1e-5F;
constexpr std::size_t COMMON_CELL_SIZE = IS_OUR_FILTER ? 12 : 3;

/// Points of VTK's type VTK_FLOAT or VTK_DOUBLE, and cells in arrays of 32 or
/// 64 bits.
vtkSmartPointer<vtkPolyData> meshOf(const Points& points, const Cells& cells, int type = VTK_FLOAT,
                                    bool wide = false) {
  auto mesh = makePolyData(points, cells);
  vtkNew<vtkPoints> typed;
  typed->SetDataType(type);
  typed->DeepCopy(mesh->GetPoints());
  mesh->SetPoints(typed);
  for (vtkCellArray* const array :
       {mesh->GetVerts(), mesh->GetLines(), mesh->GetPolys(), mesh->GetStrips()}) {
    wide ? array->ConvertTo64BitStorage() : array->ConvertTo32BitStorage();
  }
  return mesh;
}

/// Cells of 3 to 7 points, or another maximum, among points that lie anywhere:
/// neither flat nor convex, and many cells to a point. The last point is in no cell.
struct RandomMesh {
  std::mt19937 engine{7};

  Points points(std::size_t count) {
    std::uniform_real_distribution<float> coordinate(-3.0F, 5.0F);
    Points result(count);
    for (auto& point : result) {
      point = {coordinate(engine), coordinate(engine), coordinate(engine)};
    }
    return result;
  }

  Cells::List cells(std::size_t count, std::size_t points, std::size_t maximum = 7) {
    std::uniform_int_distribution<vtkIdType> index(0, static_cast<vtkIdType>(points) - 2);
    Cells::List result(count);
    for (std::size_t i = 0; i < count; ++i) {
      result[i].resize(3 + i % (maximum - 2));
      std::generate(result[i].begin(), result[i].end(), [&] { return index(engine); });
    }
    return result;
  }
};

struct FilterNormals {
  Values points;
  Values cells;
};

Values valuesOf(vtkDataArray* array) {
  auto* const floats = vtkFloatArray::SafeDownCast(array);
  return {floats->GetPointer(0), floats->GetPointer(0) + floats->GetNumberOfValues()};
}

/// What VTK's own filter says: points have normals as if all faces were
/// consistently wound, cells have those of their own winding.
FilterNormals filterNormals(vtkPolyData* mesh) {
  const auto run = [mesh](bool areOfPoints) {
    vtkNew<vtkPolyDataNormals> filter;
    filter->SetInputData(mesh);
    filter->SplittingOff();
    filter->SetConsistency(areOfPoints);
    filter->AutoOrientNormalsOff();
    filter->FlipNormalsOff();
    filter->SetComputePointNormals(areOfPoints);
    filter->SetComputeCellNormals(!areOfPoints);
    filter->Update();
    vtkPolyData& output = *filter->GetOutput();
    return valuesOf(areOfPoints ? output.GetPointData()->GetNormals() : output.GetCellData()->GetNormals());
  };
  return {run(true), run(false)};
}

auto areTheFilters(const Values& normals) {
  return testing::Pointwise(testing::FloatNear(TOLERANCE), normals);
}

class NormalsOfEveryStorageTest : public testing::TestWithParam<std::tuple<int, bool>> {};

TEST_P(NormalsOfEveryStorageTest, AreThoseOfTheFilter) {
  const auto [type, wide] = GetParam();
  RandomMesh random;
  const auto mesh = meshOf(random.points(200),
                           {.verts = {{0}, {1, 2}},
                            .lines = {{3, 4, 5}},
                            .polys = random.cells(500, 200, COMMON_CELL_SIZE),
                            .strips = random.cells(300, 200)},
                           type, wide);
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
  const vtkSmartPointer<vtkCellArray> polys = mesh->GetPolys();
  mesh->SetPolys(nullptr);
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
  mesh->SetPolys(polys);
  mesh->SetStrips(nullptr);
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
  const Values ours = valuesOf(cellNormals(*mesh));
  EXPECT_THAT(ours, areTheFilters(filterNormals(mesh).cells));
  EXPECT_EQ(ours.size(), 3 * 503U);
}

INSTANTIATE_TEST_SUITE_P(, NormalsOfEveryStorageTest,
                         testing::Combine(testing::Values(VTK_FLOAT, VTK_DOUBLE), testing::Bool()));

/// Only lists of triangles in 32 bits are summed in blocks.
TEST(NormalsTest, OfTrianglesAreTheSameInBlocks) {
  for (const std::size_t count : {1U, 2U, 127U, 128U, 129U, 385U}) {
    RandomMesh random;
    Points points = random.points(60);
    points[3] = points[4];
    points[5] = {std::numeric_limits<float>::infinity(), 0, 0};
    points[6] = {0, std::numeric_limits<float>::quiet_NaN(), 0};
    points[7] = {3e38F, -3e38F, 3e38F};
    const Cells::List triangles = random.cells(count, points.size(), 3);
    const auto normals = [&](bool wide) {
      return valuesOf(pointNormals(*meshOf(points, {.polys = triangles}, VTK_FLOAT, wide)));
    };
    EXPECT_EQ(normals(false), normals(true)) << count;
  }
}

TEST(NormalsTest, OfAStripIsTheMeanOfItsTrianglesAndOneForTheCell) {
  RandomMesh random;
  const Points points = random.points(50);
  const Cells::List strips = random.cells(40, 50);
  const auto mesh = meshOf(points, {.verts = {{1}}, .polys = {{0, 1, 2}, {3, 4, 5}}, .strips = strips});
  const Values ours = valuesOf(cellNormals(*mesh));
  ASSERT_EQ(ours.size(), 3 * 43U);

  // The filter has a normal for each triangle, after the others in our order.
  const Values filters = filterNormals(mesh).cells;
  EXPECT_THAT(Values(ours.begin(), ours.begin() + 9), areTheFilters({filters.begin(), filters.begin() + 9}));
  auto triangle = filters.begin() + 9;
  for (std::size_t i = 0; i < strips.size(); ++i) {
    Vector3 mean;
    for (std::size_t corner = 0; corner + 2 < strips[i].size(); ++corner, triangle += 3) {
      const auto point = [&](std::size_t k) { return toVector(mesh->GetPoint(strips[i][corner + k])); };
      const double area = length(cross(point(1) - point(0), point(2) - point(0)));
      mean += area * Vector3{triangle[0], triangle[1], triangle[2]};
    }
    mean = normalized(mean);
    for (std::size_t axis = 0; axis < 3; ++axis) {
      EXPECT_NEAR(ours[3 * (3 + i) + axis], mean[axis], 1e-5) << "strip " << i;
    }
  }
}

TEST(NormalsTest, OfCellsWithoutAreaAreZeroAsTheFilterHasThem) {
  const auto mesh = meshOf({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {5, 5, 5}},
                           {.polys = {{0, 1, 2}, {0, 0, 1}, {4, 4, 4, 4}, {0, 1, 3}}});
  const FilterNormals filters = filterNormals(mesh);
  EXPECT_EQ(valuesOf(pointNormals(*mesh)), filters.points);
  EXPECT_EQ(valuesOf(cellNormals(*mesh)), filters.cells);
  EXPECT_THAT(valuesOf(cellNormals(*mesh)), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
}

TEST(NormalsTest, OfNeighboursSurviveCoordinatesThatAreNotFinite) {
  for (const float wrong : {NAN, INFINITY, -INFINITY}) {
    const Points points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {wrong, 0, 0}, {1, wrong, 0}};
    const auto polys = meshOf(points, {.polys = {{0, 1, 2}, {0, 1, 3}, {0, 2, 4, 1}}});
    EXPECT_THAT(valuesOf(pointNormals(*polys)), ElementsAre(0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(valuesOf(cellNormals(*polys)), ElementsAre(0, 0, 1, 0, 0, 0, 0, 0, 0));
    const auto strips = meshOf(points, {.strips = {{0, 1, 2, 3}, {0, 3, 1, 4}}});
    EXPECT_THAT(valuesOf(cellNormals(*strips)), ElementsAre(0, 0, 1, 0, 0, 0));
    EXPECT_EQ(pointNormals(*strips)->GetTypedComponent(2, 2), 1.0F);
  }
}

TEST(NormalsTest, OfASphereOfMixedWindingAreThoseOfTheFilter) {
  for (const bool areQuads : {false, true}) {
    vtkNew<vtkSphereSource> sphere;
    sphere->SetThetaResolution(24);
    sphere->SetPhiResolution(12);
    sphere->SetLatLongTessellation(areQuads);
    sphere->GenerateNormalsOff();
    sphere->Update();
    const auto expectFiltersIf = [&](const auto& isReversed) {
      vtkNew<vtkPolyData> mesh;
      mesh->DeepCopy(sphere->GetOutput());
      vtkCellArray& faces = *mesh->GetPolys();
      faces.ConvertTo32BitStorage();
      for (vtkIdType i = 0; i < faces.GetNumberOfCells(); ++i) {
        if (isReversed(i)) {
          faces.ReverseCellAtId(i);
        }
      }
      EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
    };
    expectFiltersIf([](vtkIdType) { return false; });
    expectFiltersIf([](vtkIdType i) { return i == 100; });
    expectFiltersIf([](vtkIdType i) { return i % 2 == 1; });
    expectFiltersIf([](vtkIdType i) { return i < 200; });
    expectFiltersIf([](vtkIdType i) { return i % 7 < 3; });
  }
}

/// Of boxes and folds too, where no face points away from its points' normals.
TEST(NormalsTest, OfSharpEdgesOfMixedWindingAreThoseOfTheFilter) {
  const Points points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                         {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
  const Cells::List box = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4},
                           {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
  const auto expectFilters = [&](const Cells& cells) {
    const auto mesh = meshOf(points, cells);
    EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
  };
  for (std::size_t reversed = 0; reversed < box.size(); ++reversed) {
    Cells::List mixed = box;
    std::reverse(mixed[reversed].begin(), mixed[reversed].end());
    expectFilters({.polys = mixed});
  }
  // Two faces at a right angle, and flat ones of which one is a strip.
  expectFilters({.polys = {box[0], {0, 4, 5, 1}}});
  expectFilters({.polys = {box[0], {0, 1, 5, 4}}});
  expectFilters({.polys = {{0, 1, 2}}, .strips = {{2, 3, 0}}});
  expectFilters({.polys = {{0, 1, 2}}, .strips = {{3, 2, 0}}});
  expectFilters({.strips = {{0, 1, 3, 2}, {1, 5, 2, 6}, {5, 1, 4, 0}}});
}

}  // namespace

}  // namespace vemo
