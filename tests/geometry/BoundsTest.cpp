#include "geometry/Bounds.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>

#include <gtest/gtest.h>

namespace vemo {

namespace {

TEST(BoundsTest, AreThoseOfCellsAlone) {
  const auto mesh = makePolyData({{0, 0, 0}, {1, 0, 0}, {0, 2, 0}, {0, 0, 3}}, {.polys = {{0, 1, 2}}});
  // The connectivity may continue after the last cell.
  mesh->GetPolys()->GetConnectivityArray()->InsertNextTuple1(3);
  const Box bounds = boundsOfCells(*mesh);
  EXPECT_EQ(bounds.low, (Vector3{0, 0, 0}));
  EXPECT_EQ(bounds.high, (Vector3{1, 2, 0}));
}

}  // namespace

}  // namespace vemo
