#include "geometry/Connectivity.h"
#include "support/Meshes.h"
#include <vemo/base/InternalError.h>

#include <vtkCellArray.h>
#include <vtkTypeInt32Array.h>

#include <cstring>
#include <gmock/gmock.h>
#include <limits>
#include <utility>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using List = std::vector<std::int32_t>;

constexpr std::int32_t HIGHEST = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t LOWEST = std::numeric_limits<std::int32_t>::min();

/// A block of exactly the list's size, so that a sanitizer sees every step
/// beyond it.
EntryBlock blockOf(const List& list) {
  EntryBlock block(new unsigned char[list.size() * sizeof(std::int32_t)]);
  std::memcpy(block.get(), list.data(), list.size() * sizeof(std::int32_t));
  return block;
}

ImportedCells import(const List& list, CellKind kind, vtkIdType points) {
  return importCells(blockOf(list), static_cast<std::int32_t>(list.size()), kind, points);
}

List valuesOf(vtkTypeInt32Array* array) {
  return {array->GetPointer(0), array->GetPointer(0) + array->GetNumberOfValues()};
}

TEST(ConnectivityTest, RefusesAListThatDoesNotEndWithItsLastCell) {
  // The first one has an index outside the points too, the list comes first.
  const std::vector<List> lists = {{3, 99, 1, 2, 2},    {3, 0, 1},      {1},           {HIGHEST},
                                   {HIGHEST, 0, 1},     {-1},           {-1, 0},       {2, 0, 1, -3, 0},
                                   {1, 0, -2, 2, 0, 1}, {LOWEST, 1, 0}, {1, 0, LOWEST}};
  for (const List& list : lists) {
    try {
      import(list, CellKind::POLYS, 3);
      ADD_FAILURE() << testing::PrintToString(list);
    } catch (const InternalError& error) {
      EXPECT_STREQ(error.what(),
                   "Internal Error:  GeometryItem.countItemsInList():  i must be equal to list.size");
      EXPECT_EQ(error.getExpression(), "i == list.size");
    }
  }
}

TEST(ConnectivityTest, TurnsTheBlockItselfIntoCellsOf32Bits) {
  const List list = {3, 0, 1, 2, 4, 3, 2, 1, 0, 3, 4, 4, 4};
  EntryBlock block = blockOf(list);
  const void* const place = block.get();
  const ImportedCells imported = importCells(std::move(block), 13, CellKind::POLYS, 5);

  ASSERT_TRUE(imported.cells);
  ASSERT_FALSE(imported.cells->IsStorage64Bit());
  EXPECT_EQ(imported.cells->GetConnectivityArray32()->GetPointer(0), place);
  EXPECT_THAT(valuesOf(imported.cells->GetConnectivityArray32()), ElementsAre(0, 1, 2, 3, 2, 1, 0, 4, 4, 4));
  EXPECT_THAT(valuesOf(imported.cells->GetOffsetsArray32()), ElementsAre(0, 3, 7, 10));
  EXPECT_EQ(imported.listed, 3);
  EXPECT_THAT(imported.dropped, IsEmpty());

  // VTK may grow the array later on: it then takes memory of its own.
  imported.cells->InsertNextCell({0, 1, 2});
  EXPECT_EQ(imported.cells->GetNumberOfCells(), 4);
  EXPECT_EQ(imported.cells->GetCellSize(1), 4);
}

TEST(ConnectivityTest, LeavesOutCellsWithTooFewPoints) {
  // The index of a cell that is left out matters to nobody.
  const List list = {2, 99, 0, 0, 3, 0, 1, 2, 1, -5, 4, 3, 2, 1, 0};
  struct Case {
    CellKind kind;
    vtkIdType points;
    List dropped, offsets, connectivity;
  };
  const std::vector<Case> cases = {
      {CellKind::POLYS, 4, {0, 1, 3}, {0, 3, 7}, {0, 1, 2, 3, 2, 1, 0}},
      {CellKind::STRIPS, 4, {0, 1, 3}, {0, 3, 7}, {0, 1, 2, 3, 2, 1, 0}},
      {CellKind::LINES, 100, {1, 3}, {0, 2, 5, 9}, {99, 0, 0, 1, 2, 3, 2, 1, 0}},
  };
  for (const Case& expected : cases) {
    const ImportedCells imported = import(list, expected.kind, expected.points);
    EXPECT_EQ(imported.listed, 5);
    EXPECT_THAT(imported.dropped, ElementsAreArray(expected.dropped));
    ASSERT_TRUE(imported.cells);
    EXPECT_THAT(valuesOf(imported.cells->GetOffsetsArray32()), ElementsAreArray(expected.offsets));
    EXPECT_THAT(valuesOf(imported.cells->GetConnectivityArray32()), ElementsAreArray(expected.connectivity));
  }
  const ImportedCells verts = import({0, 1, 2, 0}, CellKind::VERTS, 3);
  EXPECT_THAT(verts.dropped, ElementsAre(0, 2));
  EXPECT_EQ(verts.cells->GetNumberOfCells(), 1);
}

/// Runs of triangles are counted and compacted in ways of their own.
TEST(ConnectivityTest, TakesOtherCellsAnywhereAmongTriangles) {
  const std::vector<List> others = {{2, 0, 1}, {4, 0, 1, 2, 3}, {0}, {3, 4, 4, 4}};
  for (const List& other : others) {
    for (int before = 0; before <= 9; ++before) {
      for (int after = 0; after <= 5; ++after) {
        List list;
        List indices;
        List offsets{0};
        std::vector<std::int32_t> dropped;
        const auto addCell = [&](const List& cell) {
          list.insert(list.end(), cell.begin(), cell.end());
          if (cell.size() > 3) {
            indices.insert(indices.end(), cell.begin() + 1, cell.end());
            offsets.push_back(static_cast<std::int32_t>(indices.size()));
          } else {
            dropped.push_back(before);
          }
        };
        for (int i = 0; i < before; ++i) {
          addCell({3, i % 5, (i + 1) % 5, (i + 2) % 5});
        }
        addCell(other);
        for (int i = 0; i < after; ++i) {
          addCell({3, 2, i % 5, 1});
        }
        const ImportedCells imported = import(list, CellKind::POLYS, 5);
        ASSERT_EQ(imported.listed, before + 1 + after);
        ASSERT_EQ(imported.dropped, dropped);
        ASSERT_EQ(valuesOf(imported.cells->GetConnectivityArray32()), indices);
        ASSERT_EQ(valuesOf(imported.cells->GetOffsetsArray32()), offsets);
        for (const std::int32_t outside : {5, -1}) {
          List bad = list;
          bad.insert(bad.end(), {3, 0, 1, outside});
          ASSERT_EQ(import(bad, CellKind::POLYS, 5).indexOutside, outside);
        }
      }
    }
  }
}

/// Triangles are looked at in blocks.
TEST(ConnectivityTest, FindsAWrongWordAnywhereAmongTriangles) {
  List sound;
  for (std::int32_t i = 0; i < 9; ++i) {
    sound.insert(sound.end(), {3, i, i + 2, i + 1});
  }
  for (const auto& [points, outside] : {std::pair(0, 0), {1, 2}, {4, 4}, {10, 10}}) {
    EXPECT_EQ(import(sound, CellKind::POLYS, points).indexOutside, outside);
  }
  EXPECT_FALSE(import({3, HIGHEST, 0, 1}, CellKind::POLYS, vtkIdType{1} << 31).indexOutside);
  for (std::size_t place = 0; place < sound.size(); ++place) {
    for (const std::int32_t word : {HIGHEST, -1, LOWEST, LOWEST + 3}) {
      List list = sound;
      list[place] = word;
      if (place % 4 == 0) {
        EXPECT_THROW(import(list, CellKind::POLYS, 11), InternalError) << word << " at " << place;
      } else {
        EXPECT_EQ(import(list, CellKind::POLYS, 11).indexOutside, word) << place;
      }
    }
  }
}

TEST(ConnectivityTest, RemovesRowsInPlace) {
  const std::vector<std::pair<std::vector<vtkIdType>, std::vector<float>>> cases = {
      {{}, {0, 1, 2, 3, 4, 5, 6, 7}}, {{0}, {2, 3, 4, 5, 6, 7}}, {{1, 2}, {0, 1, 6, 7}},
      {{1, 3}, {0, 1, 4, 5}},         {{0, 1, 2, 3}, {}},
  };
  for (const auto& [rows, kept] : cases) {
    const auto array = makeArray("array", {0, 1, 2, 3, 4, 5, 6, 7}, 2);
    const float* const place = array->GetPointer(0);
    removeRows(*array, rows);
    ASSERT_EQ(array->GetNumberOfValues(), static_cast<vtkIdType>(kept.size()));
    EXPECT_TRUE(kept.empty() || array->GetPointer(0) == place);
    EXPECT_THAT(kept, ElementsAreArray(array->GetPointer(0), kept.size()));
  }
}

}  // namespace

}  // namespace vemo
