#include "scenegraph/inspect/FieldComparison.h"

#include "scenegraph/inspect/Matching.h"
#include "scenegraph/inspect/NumberComparison.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/inspect/FieldText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <fmt/format.h>

namespace lum {

namespace {

Matching::Key keyOf(vtkDataArray& array) {
  return {array.GetName() != nullptr ? array.GetName() : "", ""};
}

Matching matchByName(const ArrayTable& left, const ArrayTable& right) {
  const auto keysOf = [](const ArrayTable& table) {
    std::vector<Matching::Key> keys;
    for (const auto& array : table) {
      keys.push_back(keyOf(*array));
    }
    return keys;
  };
  return {keysOf(left), keysOf(right)};
}

}  // namespace

/// One call for each kind of field.
class FieldComparison::Visitor {
 public:
  Visitor(FieldComparison& owner, const Field& left, const Field& right)
      : _owner(owner), _left(left), _right(right) {}

  template <class T>
  requires std::is_arithmetic_v<T>
  void operator()(T* left) const {
    const T right = *rightOf(left);
    if (!areEqual(*left, right, _owner._rules)) {
      report(*left, right);
    }
  }
  // Rather as "bold" or "#ff0000ff" than as a number.
  void operator()(std::uint32_t* left) const { reportTexts(*left == *rightOf(left)); }
  void operator()(const EnumerationField& left) const { reportTexts(*left.value == *rightOf(left).value); }

  void operator()(std::string* left) const {
    if (*left != *rightOf(left)) {
      report(*left, *rightOf(left));
    }
  }
  template <std::size_t N>
  void operator()(Vector<N, double>* left) const {
    compareVectors(_left.name, *left, *rightOf(left));
  }
  void operator()(SharedNumbers* shared) const {
    const std::vector<double>* const left = &shared->get();
    const std::vector<double>& right = rightOf(shared)->get();
    if (left->size() != right.size()) {
      report(describeLength(*left), describeLength(right));
    } else if (const auto extent = _owner.findListExtent(*left, right)) {
      const auto index = static_cast<std::size_t>(extent->index);
      _owner._report(_left.name, (*left)[index], right[index], extent);
    }
  }
  template <class T>
  void operator()(std::optional<T>* left) const {
    std::optional<T>& right = *rightOf(left);
    if (*left && right) {
      const Field leftPart{_left.name, &**left};
      const Field rightPart{_left.name, &*right};
      Visitor(_owner, leftPart, rightPart)(&**left);
    } else if (left->has_value() != right.has_value()) {
      report(toComparedValue(*left), toComparedValue(right));
    }
  }
  void operator()(std::map<std::string, Vector3>* left) const {
    const std::map<std::string, Vector3>& right = *rightOf(left);
    for (const auto& [key, value] : *left) {
      const auto other = right.find(key);
      if (other != right.end()) {
        compareVectors(partName(key), value, other->second);
      } else {
        _owner._report(partName(key), toComparedValue(value), {}, {});
      }
    }
    for (const auto& [key, value] : right) {
      if (!left->contains(key)) {
        _owner._report(partName(key), {}, toComparedValue(value), {});
      }
    }
  }

  void operator()(vtkSmartPointer<vtkDataArray>* left) const {
    compareArrays(_left.name, left->Get(), rightOf(left)->Get());
  }
  void operator()(vtkSmartPointer<vtkCellArray>* left) const {
    compareArrays(_left.name, left->Get(), rightOf(left)->Get());
  }
  void operator()(ArrayTable* left) const {
    const ArrayTable& right = *rightOf(left);
    const Matching matching = matchByName(*left, right);
    for (std::size_t i = 0; i < left->size(); ++i) {
      const std::size_t counterpart = matching.getCounterparts()[i];
      vtkDataArray* const other = counterpart != Matching::NONE ? right[counterpart].Get() : nullptr;
      compareArrays(partName(keyOf(*(*left)[i]).first), (*left)[i].Get(), other);
    }
    for (const std::size_t i : matching.getOnlyRight()) {
      compareArrays<vtkDataArray>(partName(keyOf(*right[i]).first), nullptr, right[i].Get());
    }
    for (const std::size_t i : _owner._rules.isBitwise ? matching.findMoved() : std::vector<std::size_t>()) {
      _owner._report(partName(keyOf(*(*left)[i]).first) + " position", static_cast<std::int64_t>(i),
                     static_cast<std::int64_t>(matching.getCounterparts()[i]), {});
    }
  }

  void operator()(OwnedSlot* /*slot*/) const {}
  void operator()(CollectionNode* /*collection*/) const {}
  void operator()(ReferenceSlot* /*slot*/) const {}

 private:
  template <class T>
  const T& rightOf(const T& /*left*/) const {
    return std::get<T>(_right.value);
  }

  void report(ComparedValue left, ComparedValue right) const {
    _owner._report(_left.name, std::move(left), std::move(right), {});
  }
  void reportTexts(bool areSame) const {
    if (!areSame) {
      report(describeField(_left), describeField(_right));
    }
  }
  std::string partName(std::string_view key) const { return fmt::format("{}[\"{}\"]", _left.name, key); }

  template <std::size_t N>
  void compareVectors(const std::string& what, const Vector<N, double>& left,
                      const Vector<N, double>& right) const {
    if (findExtent<double>(left.values, right.values, _owner._rules)) {
      _owner._report(what, toComparedValue(left), toComparedValue(right), {});
    }
  }
  template <class T>
  void compareArrays(const std::string& what, T* left, T* right) const {
    _owner._arrays.compare(left, right, [&](auto&&... difference) {
      _owner._report(what, std::forward<decltype(difference)>(difference)...);
    });
  }

  static std::string describeLength(const std::vector<double>& numbers) {
    return fmt::format("{} numbers", groupDigits(std::ssize(numbers)));
  }
  static ComparedValue toComparedValue(double number) { return number; }
  template <std::size_t N>
  static ComparedValue toComparedValue(const Vector<N, double>& vector) {
    return std::vector<double>(vector.begin(), vector.end());
  }
  template <class T>
  static ComparedValue toComparedValue(const std::optional<T>& optional) {
    return optional ? toComparedValue(*optional) : ComparedValue();
  }

  FieldComparison& _owner;
  const Field& _left;
  const Field& _right;
};

std::optional<Difference::Extent> FieldComparison::findListExtent(const std::vector<double>& left,
                                                                  const std::vector<double>& right) {
  constexpr std::size_t LARGE = 1024;
  if (left.size() < LARGE) {
    return findExtent<double>(left, right, _rules);
  }
  const auto [known, isNew] = _knownLists.try_emplace({&left, &right});
  if (isNew) {
    known->second = findExtent<double>(left, right, _rules);
  }
  return known->second;
}

void FieldComparison::compare(const Field& left, const Field& right) {
  std::visit(Visitor(*this, left, right), left.value);
}

}  // namespace lum
