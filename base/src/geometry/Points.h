#pragma once

#include <vemo/base/Vector.h>

#include <vtkDataArray.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>

#include <cstddef>
#include <optional>
#include <span>

/// Reading the points of an array of three components, without copies. The
/// array must outlive whatever reads it here.
namespace vemo {

/// Points in one block of numbers of type Real: x, y, z, x, ...
template <class Real>
class PointSpan {
 public:
  PointSpan(const Real* values, vtkIdType size) : _values(values), _size(size) {}

  vtkIdType size() const { return _size; }
  std::span<const Real> values() const { return {_values, 3 * static_cast<std::size_t>(_size)}; }

  Vector3 operator[](vtkIdType point) const {
    const Real* const values = _values + 3 * point;
    return {values[0], values[1], values[2]};
  }

 private:
  const Real* _values;
  vtkIdType _size;
};

/// Points of any type, fast for float and double. It checks the type for each
/// point: loops over many points should use visit().
class PointReader {
 public:
  explicit PointReader(vtkDataArray& points) : _points(points) {
    if (auto* const floats = vtkFloatArray::FastDownCast(&points)) {
      _floats.emplace(floats->GetPointer(0), size());
    } else if (auto* const doubles = vtkDoubleArray::FastDownCast(&points)) {
      _doubles.emplace(doubles->GetPointer(0), size());
    }
  }

  vtkIdType size() const { return _points.GetNumberOfTuples(); }

  Vector3 operator[](vtkIdType point) const {
    if (_floats) {
      return (*_floats)[point];
    }
    if (_doubles) {
      return (*_doubles)[point];
    }
    return {_points.GetComponent(point, 0), _points.GetComponent(point, 1), _points.GetComponent(point, 2)};
  }

  /// Calls the action with the points as a PointSpan, or with this reader when
  /// they are neither float nor double.
  template <class Action>
  void visit(const Action& action) const {
    if (_floats) {
      action(*_floats);
    } else if (_doubles) {
      action(*_doubles);
    } else {
      action(*this);
    }
  }

 private:
  vtkDataArray& _points;
  std::optional<PointSpan<float>> _floats;
  std::optional<PointSpan<double>> _doubles;
};

}  // namespace vemo
