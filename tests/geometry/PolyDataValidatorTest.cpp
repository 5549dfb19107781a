#include "geometry/PolyDataValidator.h"
#include "support/Meshes.h"

#include <gtest/gtest.h>

namespace vemo {

namespace {

TEST(PolyDataValidatorTest, SaysWhatIsWrong) {
  PolyDataArrays::DataArrays data(2, makeArray("a", {}));
  const auto flat = makeArray("", {1, 2}, 2);
  EXPECT_EQ(PolyDataValidator().findFault({.points = flat, .pointData = {}, .cellData = {}}),
            "points have 2 coordinates");
  EXPECT_EQ(PolyDataValidator().findFault({.pointData = data, .cellData = {}}),
            "two data arrays of the points are named \"a\"");
  data.resize(MAX_DATA_ARRAYS + 1);
  EXPECT_EQ(PolyDataValidator().findFault({.pointData = {}, .cellData = data}),
            "4097 data arrays, at most 4096 are allowed");
}

}  // namespace

}  // namespace vemo
