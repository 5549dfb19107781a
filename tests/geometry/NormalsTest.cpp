#include "geometry/Normals.h"

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkFloatArray.h>
#include <vtkMath.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataNormals.h>
#include <vtkSmartPointer.h>
#include <vtkTriangle.h>
#include <vtkVersionMacros.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <gmock/gmock.h>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

namespace vemo {

namespace {

using testing::ElementsAre;
using Cell = std::vector<vtkIdType>;
using Cells = std::vector<Cell>;
using Values = std::vector<float>;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();
constexpr float INFINITE = std::numeric_limits<float>::infinity();

// Our normals are those of VTK 9.1 in any version of VTK. The filter of VTK 9.3
// rounds differently, and also differs at polygons that are not flat.
constexpr bool IS_OUR_FILTER = VTK_MAJOR_VERSION == 9 && VTK_MINOR_VERSION == 1;
constexpr float TOLERANCE = IS_OUR_FILTER ? 0.0F : 1e-5F;
constexpr std::size_t COMMON_CELL_SIZE = IS_OUR_FILTER ? 7 : 3;

vtkSmartPointer<vtkCellArray> cellArray(const Cells& cells, bool wide = false) {
  auto array = vtkSmartPointer<vtkCellArray>::New();
  if (!wide) {
    array->Use32BitStorage();
  }
  for (const Cell& cell : cells) {
    array->InsertNextCell(static_cast<vtkIdType>(cell.size()), cell.data());
  }
  return array;
}

vtkSmartPointer<vtkPolyData> meshOn(const std::vector<std::array<float, 3>>& coordinates,
                                    int type = VTK_FLOAT) {
  vtkNew<vtkPoints> points;
  points->SetDataType(type);
  for (const auto& point : coordinates) {
    points->InsertNextPoint(point.data());
  }
  auto mesh = vtkSmartPointer<vtkPolyData>::New();
  mesh->SetPoints(points);
  return mesh;
}

/// Cells of 3 to 7 points, or a lower maximum, among points that lie anywhere:
/// neither flat nor convex, and many cells to a point. The last point is in no cell.
struct RandomMesh {
  std::mt19937 engine{7};

  std::vector<std::array<float, 3>> coordinates(std::size_t count) {
    std::uniform_real_distribution<float> coordinate(-3.0F, 5.0F);
    std::vector<std::array<float, 3>> result(count);
    for (auto& point : result) {
      point = {coordinate(engine), coordinate(engine), coordinate(engine)};
    }
    return result;
  }

  Cells cells(std::size_t count, std::size_t points, std::size_t maximum = 7) {
    std::uniform_int_distribution<vtkIdType> index(0, static_cast<vtkIdType>(points) - 2);
    Cells result(count);
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

/// What VTK's own filter says.
FilterNormals filterNormals(vtkPolyData* mesh) {
  vtkNew<vtkPolyDataNormals> filter;
  filter->SetInputData(mesh);
  filter->SplittingOff();
  filter->ConsistencyOff();
  filter->AutoOrientNormalsOff();
  filter->FlipNormalsOff();
  filter->ComputePointNormalsOn();
  filter->ComputeCellNormalsOn();
  filter->Update();
  return {valuesOf(filter->GetOutput()->GetPointData()->GetNormals()),
          valuesOf(filter->GetOutput()->GetCellData()->GetNormals())};
}

auto areTheFilters(const Values& normals) {
  return testing::Pointwise(testing::FloatNear(TOLERANCE), normals);
}

class NormalsOfEveryStorage : public testing::TestWithParam<std::tuple<int, bool>> {};

TEST_P(NormalsOfEveryStorage, areThoseOfTheFilter) {
  const auto [type, wide] = GetParam();
  RandomMesh random;
  const auto mesh = meshOn(random.coordinates(200), type);
  mesh->SetVerts(cellArray({{0}, {1, 2}}, wide));
  mesh->SetLines(cellArray({{3, 4, 5}}, wide));
  mesh->SetPolys(cellArray(random.cells(500, 200, COMMON_CELL_SIZE), wide));
  const Values ours = valuesOf(cellNormals(*mesh));
  EXPECT_THAT(ours, areTheFilters(filterNormals(mesh).cells));
  EXPECT_EQ(ours.size(), 3 * 503U);
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));

  mesh->SetStrips(cellArray(random.cells(300, 200), wide));
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
  mesh->SetPolys(nullptr);
  EXPECT_THAT(valuesOf(pointNormals(*mesh)), areTheFilters(filterNormals(mesh).points));
}

INSTANTIATE_TEST_SUITE_P(, NormalsOfEveryStorage,
                         testing::Combine(testing::Values(VTK_FLOAT, VTK_DOUBLE), testing::Bool()));

TEST(Normals, ofAStripIsTheMeanOfItsTrianglesAndOneForTheCell) {
  RandomMesh random;
  const auto mesh = meshOn(random.coordinates(50));
  const Cells strips = random.cells(40, 50);
  mesh->SetVerts(cellArray({{1}}));
  mesh->SetStrips(cellArray(strips));
  mesh->SetPolys(cellArray({{0, 1, 2}, {3, 4, 5}}));
  const Values ours = valuesOf(cellNormals(*mesh));
  ASSERT_EQ(ours.size(), 3 * 43U);

  // The filter has a normal for each triangle, after the others in our order.
  const Values filters = filterNormals(mesh).cells;
  EXPECT_THAT(Values(ours.begin(), ours.begin() + 9), areTheFilters({filters.begin(), filters.begin() + 9}));
  auto triangle = filters.begin() + 9;
  for (std::size_t i = 0; i < strips.size(); ++i) {
    std::array<double, 3> mean{};
    for (std::size_t corner = 0; corner + 2 < strips[i].size(); ++corner, triangle += 3) {
      std::array<std::array<double, 3>, 3> points{};
      for (std::size_t k = 0; k < 3; ++k) {
        mesh->GetPoint(strips[i][corner + k], points[k].data());
      }
      const double area = vtkTriangle::TriangleArea(points[0].data(), points[1].data(), points[2].data());
      std::transform(mean.begin(), mean.end(), triangle, mean.begin(),
                     [area](double sum, float value) { return sum + area * value; });
    }
    vtkMath::Normalize(mean.data());
    for (std::size_t axis = 0; axis < 3; ++axis) {
      EXPECT_NEAR(ours[3 * (3 + i) + axis], mean[axis], 1e-5) << "strip " << i;
    }
  }
}

TEST(Normals, ofCellsWithoutAreaAreZeroAsTheFilterHasThem) {
  const auto mesh = meshOn({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {5, 5, 5}});
  mesh->SetPolys(cellArray({{0, 1, 2}, {0, 0, 1}, {4, 4, 4, 4}, {0, 1, 3}}));
  const FilterNormals filters = filterNormals(mesh);
  EXPECT_EQ(valuesOf(pointNormals(*mesh)), filters.points);
  EXPECT_EQ(valuesOf(cellNormals(*mesh)), filters.cells);
  EXPECT_THAT(valuesOf(cellNormals(*mesh)), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
}

TEST(Normals, ofNeighboursSurviveCoordinatesThatAreNotFinite) {
  for (const float wrong : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
    const auto mesh = meshOn({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {wrong, 0, 0}, {1, wrong, 0}});
    mesh->SetPolys(cellArray({{0, 1, 2}, {0, 1, 3}, {0, 2, 4, 1}}));
    EXPECT_THAT(valuesOf(pointNormals(*mesh)), ElementsAre(0, 0, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(valuesOf(cellNormals(*mesh)), ElementsAre(0, 0, 1, 0, 0, 0, 0, 0, 0));

    mesh->SetPolys(nullptr);
    mesh->SetStrips(cellArray({{0, 1, 2, 3}, {0, 3, 1, 4}}));
    EXPECT_THAT(valuesOf(cellNormals(*mesh)), ElementsAre(0, 0, 1, 0, 0, 0));
    EXPECT_EQ(pointNormals(*mesh)->GetTypedComponent(2, 2), 1.0F);
  }
}

}  // namespace

}  // namespace vemo
