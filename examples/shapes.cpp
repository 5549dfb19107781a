#include "shapes.h"

#include <cstdint>

namespace examples {

void addSheet(Geometry& geometry, int rows, int columns,
              const std::function<Point(double row, double column)>& pointAt) {
  const auto start = static_cast<std::int32_t>(geometry.points.size());
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      geometry.points.push_back(
          pointAt(static_cast<double>(row) / (rows - 1), static_cast<double>(column) / (columns - 1)));
    }
  }
  for (int row = 0; row + 1 < rows; ++row) {
    for (int column = 0; column + 1 < columns; ++column) {
      const std::int32_t first = start + row * columns + column;
      Geometry::addCell(geometry.polys, {first, first + 1, first + columns + 1, first + columns});
    }
  }
}

Geometry makeSheet(const std::string& name, int rows, int columns,
                   const std::function<Point(double row, double column)>& pointAt) {
  Geometry sheet;
  sheet.name = name;
  addSheet(sheet, rows, columns, pointAt);
  return sheet;
}

void addLine(Geometry& geometry, const std::vector<Point>& points) {
  std::vector<std::int32_t> cell;
  for (const Point& point : points) {
    cell.push_back(static_cast<std::int32_t>(geometry.points.size()));
    geometry.points.push_back(point);
  }
  Geometry::addCell(geometry.lines, cell);
}

}  // namespace examples
