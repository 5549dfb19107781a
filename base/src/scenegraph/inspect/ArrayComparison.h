#pragma once

#include <vemo/scenegraph/inspect/Compare.h>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>

class vtkCellArray;
class vtkDataArray;

namespace lum {

/// Compares arrays of data and lists of cells.
class ArrayComparison {
 public:
  using Report =
      std::function<void(ComparedValue left, ComparedValue right, std::optional<Difference::Extent> extent)>;

  explicit ArrayComparison(const ComparisonRules& rules) : _rules(rules) {}

  /// Either may be null. Names are compared bitwise only.
  void compare(vtkDataArray* left, vtkDataArray* right, const Report& report);
  void compare(vtkCellArray* left, vtkCellArray* right, const Report& report);

  /// How many pairs were compared.
  std::size_t getCount() const { return _count; }

 private:
  struct Found {
    ComparedValue left;
    ComparedValue right;
    Difference::Extent extent;
  };
  using Finding = std::optional<Found>;
  /// Of both sides; for data the second of each is null.
  using Arrays = std::array<vtkDataArray*, 4>;

  std::string describeShape(vtkDataArray& array) const;
  std::string describeShape(vtkCellArray& cells) const;
  /// Whether there are arrays on both sides.
  template <class T>
  bool compareShapes(T* left, T* right, const Report& report);
  void compareData(vtkDataArray* left, vtkDataArray* right, const Report& report);
  template <class Compare>
  void reportValues(const Arrays& arrays, const Report& report, Compare&& compare);
  Finding compareValues(vtkDataArray& left, vtkDataArray& right) const;
  Finding compareCells(vtkCellArray& left, vtkCellArray& right) const;

  ComparisonRules _rules;
  std::size_t _count = 0;
  // Of large arrays: each pair is compared once, however many nodes share it.
  std::map<Arrays, Finding> _known;
};

}  // namespace lum
