#include "geometry/Bounds.h"
#include "support/Meshes.h"

#include <vtkDoubleArray.h>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vemo {

namespace {

template <class Array>
void expectFiniteBounds() {
  const auto points = makeArray<Array>(
      "points", {NAN, 90, 90, 1, -2, 3, -90, INFINITY, -90, -3, 4, 3, -90, -90, -INFINITY, 0, 0, 8}, 3);
  const auto bounds = finiteBounds(*points);
  EXPECT_EQ(bounds.low, (Vector3{-3, -2, 3}));
  EXPECT_EQ(bounds.high, (Vector3{1, 4, 8}));
  EXPECT_EQ(bounds.center(), (Vector3{-1, 1, 5.5}));
}

TEST(FiniteBoundsTest, LeaveOutEveryPointThatIsNotFinite) {
  expectFiniteBounds<vtkFloatArray>();
  expectFiniteBounds<vtkDoubleArray>();
  constexpr double GREATEST = std::numeric_limits<double>::max();
  EXPECT_EQ(finiteBounds(*makeArray<vtkDoubleArray>("points", {GREATEST, 0, 0}, 3)).center()[0], GREATEST);
}

TEST(FiniteBoundsTest, AreEmptyWithoutAFinitePoint) {
  EXPECT_TRUE(finiteBounds(*makeArray("points", {}, 3)).isEmpty());
  EXPECT_TRUE(finiteBounds(*makeArray("points", {0, NAN, 0, INFINITY, 0, 0}, 3)).isEmpty());
}

}  // namespace

}  // namespace vemo
