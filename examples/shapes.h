#pragma once

#include "SceneWriter.h"

#include <functional>
#include <string>
#include <vector>

namespace examples {

/// Adds a sheet of quadrangles. The function gives the point at two parameters,
/// which both go from 0 to 1 in equal steps; the points of a row follow each other.
void addSheet(Geometry& geometry, int rows, int columns,
              const std::function<Point(double row, double column)>& pointAt);

/// A geometry that is such a sheet.
Geometry makeSheet(const std::string& name, int rows, int columns,
                   const std::function<Point(double row, double column)>& pointAt);

/// Adds a line through points, which it adds as well.
void addLine(Geometry& geometry, const std::vector<Point>& points);

}  // namespace examples
