#include "geometry/CellValidator.h"
#include "geometry/kernels/IndexRange.h"
#include "support/Meshes.h"

#include <vtkCellArray.h>
#include <vtkTypeInt32Array.h>
#include <vtkTypeInt64Array.h>

#include <algorithm>
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>

namespace vemo {

namespace {

using Numbers = std::vector<int>;

template <class Array>
vtkSmartPointer<vtkCellArray> cellsOf(const Numbers& offsets, const Numbers& connectivity) {
  auto cells = vtkSmartPointer<vtkCellArray>::New();
  cells->SetData(makeArray<Array>("", {offsets.begin(), offsets.end()}),
                 makeArray<Array>("", {connectivity.begin(), connectivity.end()}));
  return cells;
}

TEST(CellValidatorTest, SaysWhatIsWrong) {
  constexpr CellRules STRICT{.pointCount = 4, .leastPoints = 2};
  constexpr CellRules LENIENT{.pointCount = 4, .mayHaveUnusedIndices = true};
  const std::string UNFIT = "the offsets do not rise from 0 to the 4 entries of the connectivity";
  struct Case {
    Numbers offsets, connectivity;
    std::string strictFault, lenientFault;
  };
  const std::vector<Case> cases = {
      {{0, 2, 4}, {0, 1, 2, 3}, "", ""},
      {{0}, {}, "", ""},
      {{1, 2, 4}, {0, 1, 2, 3}, UNFIT, UNFIT},
      {{0, 3, 2, 4}, {0, 1, 2, 3}, UNFIT, UNFIT},
      {{0, 2, 5}, {0, 1, 2, 3}, UNFIT, UNFIT},
      {{0, 2}, {0, 1, 2, 9}, UNFIT, ""},
      {{0, 1, 4}, {0, 1, 2, 3}, "a cell has 1 points, at least 2 are needed", ""},
      {{0, 2, 4}, {0, 4, 2, 3}, "cells use points 0 to 4 of 4", "cells use points 0 to 4 of 4"},
      {{0, 2, 4}, {1, 2, -1, 3}, "cells use points -1 to 3 of 4", "cells use points -1 to 3 of 4"},
  };
  for (const Case& c : cases) {
    for (const auto& cells : {cellsOf<vtkTypeInt32Array>(c.offsets, c.connectivity),
                              cellsOf<vtkTypeInt64Array>(c.offsets, c.connectivity)}) {
      EXPECT_EQ(CellValidator().findFault(*cells, STRICT), c.strictFault);
      EXPECT_EQ(CellValidator().findFault(*cells, LENIENT), c.lenientFault);
    }
  }
}

TEST(IndexRangeTest, IsThatOfThePlainLoopWhereverTheExtremesAre) {
  for (std::size_t length = 1; length <= 40; ++length) {
    for (std::size_t lowest = 0; lowest < length; ++lowest) {
      for (const std::size_t highest : {std::size_t{0}, length / 2, length - 1}) {
        std::vector<std::int32_t> indices(length, 5);
        indices[highest] = std::numeric_limits<std::int32_t>::max();
        indices[lowest] = std::numeric_limits<std::int32_t>::min();
        const auto [least, greatest] = std::ranges::minmax(indices);
        const IndexRange range = rangeOf(std::span<const std::int32_t>(indices));
        ASSERT_EQ(range.least, least) << length << ' ' << lowest;
        ASSERT_EQ(range.greatest, greatest) << length << ' ' << highest;
      }
    }
  }
}

/// Large arrays are looked through once; each cell array has rules of its own.
TEST(CellValidatorTest, JudgesArraysThatCellArraysShareByEachOnesRules) {
  Numbers indices(3000);
  std::iota(indices.begin(), indices.end(), 0);
  const auto connectivity = makeArray<vtkTypeInt32Array>("", indices);
  const auto cells = vtkSmartPointer<vtkCellArray>::New();
  cells->SetData(makeArray<vtkTypeInt32Array>("", {0, 3000}), connectivity);
  const auto fewer = vtkSmartPointer<vtkCellArray>::New();
  fewer->SetData(makeArray<vtkTypeInt32Array>("", {0, 2000}), connectivity);

  CellValidator validator;
  EXPECT_EQ(validator.findFault(*cells, {.pointCount = 3000}), "");
  EXPECT_EQ(validator.findFault(*cells, {.pointCount = 2999}), "cells use points 0 to 2999 of 2999");
  EXPECT_EQ(validator.findFault(*fewer, {.pointCount = 2000, .mayHaveUnusedIndices = true}), "");
  EXPECT_EQ(validator.findFault(*fewer, {.pointCount = 1999, .mayHaveUnusedIndices = true}),
            "cells use points 0 to 1999 of 1999");
}

/// Of large arrays what was found is kept; arrays are often made where others were.
TEST(CellValidatorTest, JudgesArraysAnewThatChangedOrTookThePlaceOfOthers) {
  CellValidator validator;
  for (const int greatest : {2999, 5, 4000, 7}) {
    Numbers indices(3000);
    indices.back() = greatest;
    const auto cells = cellsOf<vtkTypeInt32Array>({0, 3000}, indices);
    vtkDataArray& connectivity = *cells->GetConnectivityArray();
    EXPECT_EQ(validator.findFault(*cells, {.pointCount = 1}),
              fmt::format("cells use points 0 to {} of 1", greatest));
    connectivity.SetComponent(0, 0, -1);
    connectivity.Modified();
    EXPECT_EQ(validator.findFault(*cells, {.pointCount = 1}),
              fmt::format("cells use points -1 to {} of 1", greatest));
  }
}

}  // namespace

}  // namespace vemo
