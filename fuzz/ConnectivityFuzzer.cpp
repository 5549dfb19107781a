// Connectivity lists, against a plain reading of them. The input is the kind of
// cells, the number of points, and the list, in bytes or in words.

#include "Fuzzing.h"
#include "geometry/Cells.h"
#include "geometry/Connectivity.h"
#include <vemo/base/InternalError.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace vemo {

namespace {

using List = std::vector<std::int32_t>;

List listOf(const std::string& bytes, bool isOfWords) {
  if (!isOfWords) {
    return {bytes.begin(), bytes.end()};
  }
  List list(bytes.size() / sizeof(std::int32_t) + 1);
  std::memcpy(list.data(), bytes.data(), bytes.size());
  return list;
}

/// What becomes of a list: the cells that are kept, and the numbers of those that
/// are not.
using Result = std::pair<std::vector<List>, List>;

/// An exception for a list that is to be refused, the index for one that has an
/// index outside the points.
std::variant<Result, std::int32_t> readPlainly(const List& list, std::size_t leastPoints, int pointCount) {
  Result result;
  std::optional<std::int32_t> outside;
  std::int32_t number = 0;
  for (auto place = list.begin(); place != list.end(); ++number) {
    const std::int32_t size = *place++;
    if (size < 0 || size > list.end() - place) {
      throw InternalError("broken", "", __FILE__, __LINE__);
    }
    const List cell(place, place + size);
    place += size;
    if (cell.size() < leastPoints) {
      result.second.push_back(number);
      continue;
    }
    result.first.push_back(cell);
    const auto found =
        std::ranges::find_if(cell, [=](int index) { return index < 0 || index >= pointCount; });
    outside = !outside && found != cell.end() ? std::optional(*found) : outside;
  }
  return outside ? std::variant<Result, std::int32_t>(*outside) : result;
}

std::variant<Result, std::int32_t> readFast(const List& list, CellKind kind, int pointCount) {
  auto block = std::make_unique<unsigned char[]>(list.size() * sizeof(std::int32_t) + 1);
  std::ranges::copy(list, reinterpret_cast<std::int32_t*>(block.get()));
  const ImportedCells cells =
      importCells(std::move(block), static_cast<std::int32_t>(list.size()), kind, pointCount);
  if (cells.indexOutside) {
    return *cells.indexOutside;
  }
  Result result{{}, cells.dropped};
  forEachCell(*cells.cells, [&result](auto cell) { result.first.emplace_back(cell.begin(), cell.end()); });
  require(cells.listed == static_cast<int>(result.first.size() + result.second.size()), "Cells are missing");
  return result;
}

/// Nothing when the list is refused.
template <class Read>
auto resultOf(const Read& read) -> std::optional<decltype(read())> {
  try {
    return read();
  } catch (const InternalError&) {
    return std::nullopt;
  }
}

}  // namespace

void readInput(const std::string& input) {
  if (input.size() < 2) {
    return;
  }
  const auto bits = static_cast<unsigned char>(input[0]);
  const auto pointCount = static_cast<unsigned char>(input[1]);
  const CellKindTraits& kind = CELL_KINDS[bits % 4];
  const List list = listOf(input.substr(2), (bits & 4U) != 0);
  require(resultOf([&] { return readFast(list, kind.kind, pointCount); }) == resultOf([&] {
            return readPlainly(list, static_cast<std::size_t>(kind.leastPoints), pointCount);
          }),
          "The two ways of reading differ");
}

}  // namespace vemo
