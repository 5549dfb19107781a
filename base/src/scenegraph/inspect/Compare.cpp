#include "scenegraph/inspect/FieldComparison.h"
#include "scenegraph/inspect/Matching.h"
#include "scenegraph/inspect/NodePaths.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace lum {

namespace {

/// Goes through two graphs in step.
class GraphComparison {
 public:
  // Listing fields needs a mutable node; nothing is changed.
  GraphComparison(const Node& left, const Node& right, const ComparisonRules& rules,
                  const DifferenceSink& sink)
      : _left(const_cast<Node&>(left)),
        _right(const_cast<Node&>(right)),
        _rules(rules),
        _sink(sink),
        _leftPaths(left),
        _rightPaths(right),
        _fields(rules, [this](const std::string& what, ComparedValue first, ComparedValue second,
                              std::optional<Difference::Extent> extent) {
          report({_leftPaths.getPath(*_current).value(), what, std::move(first), std::move(second), extent});
        }) {}

  ComparisonCounts run() {
    findTargets();
    pair(_left, _right);
    while (!_waiting.empty() && !_isStopped) {
      const auto [left, right] = _waiting.back();
      _waiting.pop_back();
      compare(*left, *right);
    }
    compareReferences();
    return {_nodeCount, _fields.getArrayCount()};
  }

 private:
  struct NodePair {
    Node* left;
    Node* right;
  };
  struct ReferencePair {
    const Node* owner;
    const char* field;
    const Node* left;
    const Node* right;
  };

  /// The nodes on the left whose counterparts are needed in the end.
  void findTargets() {
    forEachNode(_left, [this](Node& node) {
      for (const Field& field : node.getFields()) {
        if (const Node* target = targetOf(field)) {
          _counterparts.emplace(target, nullptr);
        }
      }
    });
  }

  static const Node* targetOf(const Field& field) {
    const auto* const slot = std::get_if<ReferenceSlot*>(&field.value);
    return slot != nullptr ? (*slot)->getNode() : nullptr;
  }

  void pair(Node& left, Node& right) {
    _waiting.push_back({&left, &right});
    const auto target = _counterparts.find(&left);
    if (target != _counterparts.end()) {
      target->second = &right;
    }
  }

  void compare(Node& left, Node& right) {
    _current = &left;
    ++_nodeCount;
    if (left.className() != right.className()) {
      report("class", left.className(), right.className());
      return;
    }
    if (left.getName() != right.getName()) {
      report("name", left.getName(), right.getName());
    }
    if (left.getQualifiedName() != right.getQualifiedName()) {
      report("qualifiedName", toComparedValue(left.getQualifiedName()),
             toComparedValue(right.getQualifiedName()));
    }
    const std::size_t firstNew = _waiting.size();
    const FieldList leftFields = left.getFields();
    const FieldList rightFields = right.getFields();
    for (std::size_t i = 0; i < leftFields.size(); ++i) {
      _fields.compare(leftFields[i], rightFields[i]);
      compareLinks(leftFields[i], rightFields[i]);
    }
    // The last is the next.
    std::reverse(_waiting.begin() + static_cast<std::ptrdiff_t>(firstNew), _waiting.end());
  }

  void compareLinks(const Field& left, const Field& right) {
    if (const auto* slot = std::get_if<OwnedSlot*>(&left.value)) {
      compareOwned((*slot)->getNode(), std::get<OwnedSlot*>(right.value)->getNode());
    } else if (const auto* collection = std::get_if<CollectionNode*>(&left.value)) {
      compareCollections(**collection, *std::get<CollectionNode*>(right.value));
    } else if (const auto* reference = std::get_if<ReferenceSlot*>(&left.value)) {
      const Node* const first = (*reference)->getNode();
      const Node* const second = std::get<ReferenceSlot*>(right.value)->getNode();
      if (first != nullptr || second != nullptr) {
        _references.push_back({_current, left.name, first, second});
      }
    }
  }

  void compareOwned(Node* left, Node* right) {
    if (left != nullptr && right != nullptr) {
      pair(*left, *right);
    } else if (left != nullptr) {
      reportOnlyLeft(*left);
    } else if (right != nullptr) {
      reportOnlyRight(*right);
    }
  }

  void compareCollections(CollectionNode& left, CollectionNode& right) {
    const Matching matching(keysOf(left), keysOf(right));
    const std::vector<std::size_t>& counterparts = matching.getCounterparts();
    for (std::size_t i = 0; i < counterparts.size(); ++i) {
      if (counterparts[i] != Matching::NONE) {
        pair(left.getNode(i), right.getNode(counterparts[i]));
      } else {
        reportOnlyLeft(left.getNode(i));
      }
    }
    for (const std::size_t i : matching.getOnlyRight()) {
      reportOnlyRight(right.getNode(i));
    }
    if (!_rules.isBitwise && dynamic_cast<const AttributesCollection*>(&left) != nullptr) {
      return;
    }
    for (const std::size_t i : matching.findMoved()) {
      report({_leftPaths.getPath(left.getNode(i)).value(),
              "position",
              static_cast<std::int64_t>(i),
              static_cast<std::int64_t>(counterparts[i]),
              {}});
    }
  }

  static std::vector<Matching::Key> keysOf(const CollectionNode& collection) {
    std::vector<Matching::Key> keys;
    keys.reserve(collection.getNodeCount());
    for (std::size_t i = 0; i < collection.getNodeCount(); ++i) {
      const Node& node = collection.getNode(i);
      keys.emplace_back(node.className(), node.getName());
    }
    return keys;
  }

  /// A node outside both graphs is the same only as itself.
  void compareReferences() {
    for (const ReferencePair& each : _references) {
      const auto place = _counterparts.find(each.left);
      const Node* const counterpart = place != _counterparts.end() ? place->second : nullptr;
      if (counterpart == nullptr ? each.left != each.right : counterpart != each.right) {
        _current = each.owner;
        report(each.field, describeTarget(_leftPaths, each.left), describeTarget(_rightPaths, each.right));
      }
    }
  }

  static ComparedValue describeTarget(NodePaths& paths, const Node* target) {
    return target != nullptr ? ComparedValue("-> " + paths.getPath(*target).value_or("another graph"))
                             : ComparedValue();
  }

  static ComparedValue toComparedValue(const std::optional<std::string>& text) {
    return text ? ComparedValue(*text) : ComparedValue();
  }

  void reportOnlyLeft(const Node& node) {
    report({_leftPaths.getPath(node).value(), "node", node.className(), {}, {}});
  }
  void reportOnlyRight(const Node& node) {
    report({_rightPaths.getPath(node).value(), "node", {}, node.className(), {}});
  }
  /// Of the current node.
  void report(const char* what, ComparedValue left, ComparedValue right) {
    report({_leftPaths.getPath(*_current).value(), what, std::move(left), std::move(right), {}});
  }
  void report(const Difference& difference) { _isStopped = _isStopped || !_sink(difference); }

  Node& _left;
  Node& _right;
  ComparisonRules _rules;
  const DifferenceSink& _sink;
  NodePaths _leftPaths;
  NodePaths _rightPaths;
  FieldComparison _fields;
  std::vector<NodePair> _waiting;
  std::vector<ReferencePair> _references;
  // The counterparts of the nodes on the left that are referred to.
  std::unordered_map<const Node*, const Node*> _counterparts;
  const Node* _current = nullptr;
  std::size_t _nodeCount = 0;
  bool _isStopped = false;
};

}  // namespace

ComparisonCounts compareGraphs(const Node& left, const Node& right, const ComparisonRules& rules,
                               const DifferenceSink& sink) {
  return GraphComparison(left, right, rules, sink).run();
}

std::string firstDifference(const Node& left, const Node& right) {
  std::string text;
  compareGraphs(left, right, {.isBitwise = true}, [&text](const Difference& difference) {
    text = describeDifference(difference);
    return false;
  });
  return text;
}

}  // namespace lum
