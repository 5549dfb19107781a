#include "geometry/Normals.h"

#include "geometry/PointCoordinates.h"

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <span>
#include <type_traits>

// Sums run in the order and the precision of vtkPolyDataNormals (9.1), found by
// comparison: normals of cells in double, rounded to float; summed at points in
// float, polygons before strips; the sum's squares in float, their root in
// double. So the results are its results bit for bit, as long as the compiler
// fuses no multiplications with additions.
namespace vemo::geometry {
namespace {

using Direction = std::array<double, 3>;
using Normal = std::array<float, 3>;

/// What VTK writes where there is no normal to write: at verts and lines.
constexpr Normal NO_NORMAL = {1.0F, 0.0F, 0.0F};

template <class Real, class Index>
Direction pointAt(std::span<const Real> coordinates, Index index) {
  const Real* const point = coordinates.data() + 3 * static_cast<std::size_t>(index);
  return {point[0], point[1], point[2]};
}

/// The cross product of the edges that leave the middle corner: twice the area
/// of the triangle, along its normal.
Direction cornerProduct(const Direction& before, const Direction& corner, const Direction& after) {
  const Direction a = {after[0] - corner[0], after[1] - corner[1], after[2] - corner[2]};
  const Direction b = {before[0] - corner[0], before[1] - corner[1], before[2] - corner[2]};
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

void add(Direction& sum, const Direction& summand) {
  for (std::size_t axis = 0; axis < 3; ++axis) {
    sum[axis] += summand[axis];
  }
}

double length(const Direction& direction) {
  return std::sqrt(direction[0] * direction[0] + direction[1] * direction[1] + direction[2] * direction[2]);
}

bool isFinite(double value) {
  return std::abs(value) <= std::numeric_limits<double>::max();
}

/// The direction at length 1; zero when it has no length, or none that is
/// finite.
Normal unit(const Direction& direction) {
  const double norm = length(direction);
  if (norm == 0.0 || !isFinite(norm)) {
    return {};
  }
  return {static_cast<float>(direction[0] / norm), static_cast<float>(direction[1] / norm),
          static_cast<float>(direction[2] / norm)};
}

template <class Real, class Index>
Direction triangleDirection(std::span<const Real> coordinates, Index p0, Index p1, Index p2) {
  return cornerProduct(pointAt(coordinates, p0), pointAt(coordinates, p1), pointAt(coordinates, p2));
}

/// A polygon of more than three points need be neither flat nor convex: the
/// products of all its corners are summed.
template <class Real, class Index>
Direction polygonDirection(std::span<const Real> coordinates, std::span<const Index> cell) {
  if (cell.size() == 3) {
    return triangleDirection(coordinates, cell[0], cell[1], cell[2]);
  }
  Direction sum{};
  Direction before = pointAt(coordinates, cell[0]);
  Direction corner = pointAt(coordinates, cell[1]);
  for (std::size_t i = 0; i < cell.size(); ++i) {
    const Direction after = pointAt(coordinates, cell[i + 2 < cell.size() ? i + 2 : i + 2 - cell.size()]);
    add(sum, cornerProduct(before, corner, after));
    before = corner;
    corner = after;
  }
  return sum;
}

/// Calls the action with the point indices of each cell, as a span of 32-bit or
/// 64-bit integers, whichever the cells are stored as.
template <class Action>
void forEachCell(vtkCellArray& cells, const Action& action) {
  cells.Visit([&action](auto& storage) {
    using Index = std::remove_pointer_t<decltype(storage.GetOffsets()->GetPointer(0))>;
    const Index* const offsets = storage.GetOffsets()->GetPointer(0);
    const Index* const indices = storage.GetConnectivity()->GetPointer(0);
    const vtkIdType count = storage.GetNumberOfCells();
    for (vtkIdType cell = 0; cell < count; ++cell) {
      action(std::span<const Index>(indices + offsets[cell], indices + offsets[cell + 1]));
    }
  });
}

/// Calls the action with the three corners of each triangle of a strip. Every
/// second triangle runs against the strip, so that all face one way; which of
/// its points comes first is as in vtkTriangleStrip::DecomposeStrip.
template <class Index, class Action>
void forEachTriangle(std::span<const Index> strip, const Action& action) {
  for (std::size_t i = 0; i + 2 < strip.size(); ++i) {
    const std::size_t odd = i % 2;
    action(strip[i + odd], strip[i + 1 - odd], strip[i + 2]);
  }
}

template <class Index>
void addAt(Index point, const Normal& normal, std::span<float> sums) {
  float* const sum = sums.data() + 3 * static_cast<std::size_t>(point);
  for (std::size_t axis = 0; axis < 3; ++axis) {
    sum[axis] += normal[axis];
  }
}

template <class Real>
void sumAtPoints(vtkPolyData& mesh, std::span<const Real> coordinates, std::span<float> sums) {
  forEachCell(*mesh.GetPolys(), [&](auto cell) {
    const Normal normal = unit(polygonDirection(coordinates, cell));
    for (const auto point : cell) {
      addAt(point, normal, sums);
    }
  });
  forEachCell(*mesh.GetStrips(), [&](auto strip) {
    forEachTriangle(strip, [&](auto p0, auto p1, auto p2) {
      const Normal normal = unit(triangleDirection(coordinates, p0, p1, p2));
      for (const auto point : {p0, p1, p2}) {
        addAt(point, normal, sums);
      }
    });
  });
}

void normalize(std::span<float> vectors) {
  for (std::size_t i = 0; i < vectors.size(); i += 3) {
    float* const vector = &vectors[i];
    const float squares = vector[0] * vector[0] + vector[1] * vector[1] + vector[2] * vector[2];
    const double norm = std::sqrt(double{squares});
    if (norm != 0.0) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        vector[axis] = static_cast<float>(vector[axis] / norm);
      }
    }
  }
}

/// The area-weighted sum of a strip's triangles, those that have one.
template <class Real, class Index>
Direction stripDirection(std::span<const Real> coordinates, std::span<const Index> strip) {
  Direction sum{};
  forEachTriangle(strip, [&](Index p0, Index p1, Index p2) {
    const Direction direction = triangleDirection(coordinates, p0, p1, p2);
    if (isFinite(length(direction))) {
      add(sum, direction);
    }
  });
  return sum;
}

template <class Real>
void writePerCell(vtkPolyData& mesh, std::span<const Real> coordinates, std::span<float> normals) {
  float* next = normals.data();
  const auto write = [&next](const Normal& normal) { next = std::copy(normal.begin(), normal.end(), next); };
  for (vtkIdType i = 0; i < mesh.GetNumberOfVerts() + mesh.GetNumberOfLines(); ++i) {
    write(NO_NORMAL);
  }
  forEachCell(*mesh.GetPolys(), [&](auto cell) { write(unit(polygonDirection(coordinates, cell))); });
  forEachCell(*mesh.GetStrips(), [&](auto strip) { write(unit(stripDirection(coordinates, strip))); });
}

/// An array of zero vectors.
vtkSmartPointer<vtkFloatArray> newNormals(vtkIdType count) {
  auto normals = vtkSmartPointer<vtkFloatArray>::New();
  normals->SetName("Normals");
  normals->SetNumberOfComponents(3);
  normals->SetNumberOfTuples(count);
  normals->FillValue(0.0F);
  return normals;
}

std::span<float> valuesOf(vtkFloatArray& array) {
  return {array.GetPointer(0), static_cast<std::size_t>(array.GetNumberOfValues())};
}

}  // namespace

vtkSmartPointer<vtkFloatArray> pointNormals(vtkPolyData& mesh) {
  auto normals = newNormals(mesh.GetNumberOfPoints());
  withCoordinates(*mesh.GetPoints(),
                  [&](auto coordinates) { sumAtPoints(mesh, coordinates, valuesOf(*normals)); });
  normalize(valuesOf(*normals));
  return normals;
}

vtkSmartPointer<vtkFloatArray> cellNormals(vtkPolyData& mesh) {
  auto normals = newNormals(mesh.GetNumberOfCells());
  withCoordinates(*mesh.GetPoints(),
                  [&](auto coordinates) { writePerCell(mesh, coordinates, valuesOf(*normals)); });
  return normals;
}

}  // namespace vemo::geometry
