#pragma once

#include "scenegraph/inspect/ArrayComparison.h"
#include <vemo/scenegraph/Field.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lum {

/// Compares the values of fields, but not what they own or refer to.
class FieldComparison {
 public:
  /// Receives the field, or the part of it, that differs.
  using Report = std::function<void(const std::string& what, ComparedValue left, ComparedValue right,
                                    std::optional<Difference::Extent> extent)>;

  FieldComparison(const ComparisonRules& rules, Report report)
      : _rules(rules), _report(std::move(report)), _arrays(rules) {}

  /// Two fields of the same name and kind.
  void compare(const Field& left, const Field& right);

  std::size_t getArrayCount() const { return _arrays.getCount(); }

 private:
  class Visitor;

  /// Of lists of the same length.
  std::optional<Difference::Extent> findListExtent(const std::vector<double>& left,
                                                   const std::vector<double>& right);

  ComparisonRules _rules;
  Report _report;
  ArrayComparison _arrays;
  // Of large lists: each pair is compared once, however many nodes share it.
  std::map<std::pair<const std::vector<double>*, const std::vector<double>*>,
           std::optional<Difference::Extent>>
      _knownLists;
};

}  // namespace lum
