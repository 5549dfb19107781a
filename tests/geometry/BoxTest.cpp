#include "geometry/Box.h"

#include <vtkPoints.h>
#include <vtkSmartPointer.h>
#include <vtkType.h>

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace vemo {

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

vtkSmartPointer<vtkPoints> pointsOf(const std::vector<std::array<double, 3>>& coordinates, int type) {
  auto points = vtkSmartPointer<vtkPoints>::New();
  points->SetDataType(type);
  for (const auto& point : coordinates) {
    points->InsertNextPoint(point.data());
  }
  return points;
}

TEST(FiniteBounds, leaveOutEveryPointThatIsNotFinite) {
  for (const int type : {VTK_FLOAT, VTK_DOUBLE}) {
    const auto points = pointsOf({{NOT_A_NUMBER, 90, 90},
                                  {1, -2, 3},
                                  {-90, INFINITE, -90},
                                  {-3, 4, 3},
                                  {-90, -90, -INFINITE},
                                  {0, 0, 8}},
                                 type);
    const auto bounds = finiteBounds(*points->GetData());
    EXPECT_EQ(bounds.low, (Vector<3, double>{-3, -2, 3}));
    EXPECT_EQ(bounds.high, (Vector<3, double>{1, 4, 8}));
    EXPECT_EQ(bounds.center(), (Vector<3, double>{-1, 1, 5.5}));
  }
  constexpr double GREATEST = std::numeric_limits<double>::max();
  EXPECT_EQ(finiteBounds(*pointsOf({{GREATEST, 0, 0}}, VTK_DOUBLE)->GetData()).center()[0], GREATEST);
}

TEST(FiniteBounds, areEmptyWithoutAFinitePoint) {
  EXPECT_TRUE(finiteBounds(*pointsOf({}, VTK_FLOAT)->GetData()).isEmpty());
  EXPECT_TRUE(
      finiteBounds(*pointsOf({{0, NOT_A_NUMBER, 0}, {INFINITE, 0, 0}}, VTK_FLOAT)->GetData()).isEmpty());
}

}  // namespace

}  // namespace vemo
