#include "scenegraph/ArrayType.h"
#include "scenegraph/inspect/NodeDescription.h"
#include <vemo/base/SameBits.h>
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <cstring>
#include <fmt/format.h>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace lum {

namespace {

/// What a field or a part of it is, on either side: "1 against 2"; empty when
/// they are equal.
template <class T>
std::string differ(const T& left, const T& right) {
  return left == right ? std::string() : fmt::format("{} against {}", left, right);
}

std::string differBits(const void* left, const void* right, std::size_t size) {
  return size == 0 || std::memcmp(left, right, size) == 0 ? "" : "the values differ";
}

std::string_view textOf(const char* text) {
  return text != nullptr ? text : "(none)";
}

std::string differArrays(vtkDataArray* left, vtkDataArray* right) {
  if (left == right) {
    return {};
  }
  if (left == nullptr || right == nullptr) {
    return "only one has an array";
  }
  const auto type = arrayTypeOf(*left);
  if (!type || type != arrayTypeOf(*right)) {
    return fmt::format("{} against {}", left->GetDataTypeAsString(), right->GetDataTypeAsString());
  }
  for (const std::string& difference : {differ(textOf(left->GetName()), textOf(right->GetName())),
                                        differ(left->GetNumberOfComponents(), right->GetNumberOfComponents()),
                                        differ(left->GetNumberOfTuples(), right->GetNumberOfTuples())}) {
    if (!difference.empty()) {
      return difference;
    }
  }
  return differBits(left->GetVoidPointer(0), right->GetVoidPointer(0),
                    static_cast<std::size_t>(left->GetNumberOfValues()) * arrayTypeSize(*type));
}

/// Compares two fields of one kind: see Field.h.
struct FieldComparison {
  const FieldValue& other;

  template <class T>
  const T& right(const T& /*left*/) const {
    return std::get<T>(other);
  }

  template <class T>
  requires std::is_arithmetic_v<T> std::string operator()(T* left) const {
    return sameBits(*left, *right(left)) ? "" : fmt::format("{} against {}", *left, *right(left));
  }
  std::string operator()(const EnumerationField& left) const {
    return differ(*left.value, *right(left).value);
  }
  std::string operator()(std::string* left) const { return differ(*left, *right(left)); }
  template <std::size_t N>
  std::string operator()(Vector<N, double>* left) const {
    return differBits(left->data(), right(left)->data(), sizeof(double) * N);
  }
  std::string operator()(std::vector<double>* left) const {
    const std::string sizes = differ(left->size(), right(left)->size());
    return sizes.empty() ? differBits(left->data(), right(left)->data(), sizeof(double) * left->size())
                         : sizes;
  }
  template <class T>
  std::string operator()(std::optional<T>* left) const {
    std::optional<T>* const second = right(left);
    if (!*left || !*second) {
      return left->has_value() == second->has_value() ? "" : "only one is set";
    }
    return FieldComparison{FieldValue(&**second)}(&**left);
  }
  std::string operator()(std::map<std::string, Vector<3, double>>* left) const {
    auto second = right(left)->begin();
    if (left->size() != right(left)->size()) {
      return differ(left->size(), right(left)->size());
    }
    for (auto& [key, vector] : *left) {
      std::string difference = differ(key, second->first);
      difference += differBits(vector.data(), second->second.data(), sizeof(double) * 3);
      if (!difference.empty()) {
        return fmt::format("{}: {}", key, difference);
      }
      ++second;
    }
    return {};
  }
  std::string operator()(vtkSmartPointer<vtkDataArray>* left) const {
    return differArrays(*left, *right(left));
  }
  std::string operator()(vtkSmartPointer<vtkCellArray>* left) const {
    vtkCellArray* first = *left;
    vtkCellArray* second = *right(left);
    if (first == nullptr || second == nullptr) {
      return first == second ? "" : "only one has cells";
    }
    const std::string offsets = differArrays(first->GetOffsetsArray(), second->GetOffsetsArray());
    return offsets.empty() ? differArrays(first->GetConnectivityArray(), second->GetConnectivityArray())
                           : "offsets: " + offsets;
  }
  std::string operator()(ArrayTable* left) const {
    const ArrayTable& second = *right(left);
    if (left->size() != second.size()) {
      return differ(left->size(), second.size());
    }
    for (std::size_t i = 0; i < second.size(); ++i) {
      const std::string difference = differArrays((*left)[i], second[i]);
      if (!difference.empty()) {
        return fmt::format("array \"{}\": {}", textOf((*left)[i]->GetName()), difference);
      }
    }
    return {};
  }
  std::string operator()(OwnedSlot* left) const {
    return (left->getNode() == nullptr) == (right(left)->getNode() == nullptr) ? "" : "only one has a node";
  }
  std::string operator()(CollectionNode* left) const {
    const std::string counts = differ(left->getNodeCount(), right(left)->getNodeCount());
    return counts.empty() ? "" : counts + " nodes";
  }
  // What they refer to is compared by its position, once all positions are known.
  std::string operator()(ReferenceSlot* left) const {
    return (left->getNode() == nullptr) == (right(left)->getNode() == nullptr) ? ""
                                                                               : "only one refers to a node";
  }
};

/// Goes through two graphs in step.
class GraphComparison {
 public:
  std::string run(Node& left, Node& right) {
    _waiting.emplace_back(&left, &right);
    while (!_waiting.empty()) {
      const auto [first, second] = _waiting.back();
      _waiting.pop_back();
      const std::string difference = compare(*first, *second);
      if (!difference.empty()) {
        return describeNode(*first) + ": " + difference;
      }
    }
    return _references.empty() ? "" : compareReferences(left, right);
  }

 private:
  struct ReferencePair {
    const Node* owner;
    const Node* left;
    const Node* right;
  };

  std::string compare(Node& left, Node& right) {
    if (left.className() != right.className()) {
      return differ(left.className(), right.className());
    }
    if (left.getName() != right.getName()) {
      return "name: " + differ(left.getName(), right.getName());
    }
    if (left.getQualifiedName() != right.getQualifiedName()) {
      return "qualified name: " +
             differ(left.getQualifiedName().value_or("(none)"), right.getQualifiedName().value_or("(none)"));
    }
    const FieldList leftFields = left.getFields();
    const FieldList rightFields = right.getFields();
    for (std::size_t i = 0; i < leftFields.size(); ++i) {
      const std::string difference = std::visit(FieldComparison{rightFields[i].value}, leftFields[i].value);
      if (!difference.empty()) {
        return fmt::format("{}: {}", leftFields[i].name, difference);
      }
      gatherReference(left, leftFields[i].value, rightFields[i].value);
    }
    const std::vector<Node*> first = left.getDependents();
    const std::vector<Node*> second = right.getDependents();
    for (std::size_t i = first.size(); i > 0; --i) {
      _waiting.emplace_back(first[i - 1], second[i - 1]);
    }
    return {};
  }

  void gatherReference(const Node& owner, const FieldValue& left, const FieldValue& right) {
    if (const auto* slot = std::get_if<ReferenceSlot*>(&left);
        slot != nullptr && (*slot)->getNode() != nullptr) {
      _references.push_back({&owner, (*slot)->getNode(), std::get<ReferenceSlot*>(right)->getNode()});
    }
  }

  /// A node outside of the graph is the same only as itself.
  std::string compareReferences(Node& left, Node& right) const {
    const auto leftPositions = positionsIn(left);
    const auto rightPositions = positionsIn(right);
    for (const ReferencePair& pair : _references) {
      const auto first = leftPositions.find(pair.left);
      const auto second = rightPositions.find(pair.right);
      const bool isOutside = first == leftPositions.end() && second == rightPositions.end();
      if (isOutside ? pair.left != pair.right
                    : first == leftPositions.end() || second == rightPositions.end() ||
                          first->second != second->second) {
        return fmt::format("{}: refers to {} against {}", describeNode(*pair.owner), describeNode(*pair.left),
                           describeNode(*pair.right));
      }
    }
    return {};
  }

  static std::unordered_map<const Node*, std::size_t> positionsIn(Node& root) {
    std::unordered_map<const Node*, std::size_t> positions;
    forEachNode(root, [&](Node& node) { positions.emplace(&node, positions.size()); });
    return positions;
  }

  std::vector<std::pair<Node*, Node*>> _waiting;
  std::vector<ReferencePair> _references;
};

}  // namespace

std::string firstDifference(const Node& left, const Node& right) {
  // Nodes list their fields for those who change them, which nothing here does.
  return GraphComparison().run(const_cast<Node&>(left), const_cast<Node&>(right));
}

}  // namespace lum
