#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Traversal.h>

#include <algorithm>
#include <compare>
#include <functional>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

namespace lum {

namespace {

/// Below this number of nodes a linear search is faster than an index.
constexpr std::size_t INDEX_THRESHOLD = 16;

}  // namespace

/// The first of a collection's nodes of a class, and of a class and name.
class CollectionNode::Index {
 public:
  explicit Index(const std::vector<Ptr<Node>>& nodes) : _nodes(nodes) {
    for (const auto& node : nodes) {
      add(*static_cast<Node*>(node.getObject()));
    }
  }

  /// At the end.
  void add(Node& node) {
    _byClass.emplace(node.className(), &node);
    addName(node);
  }

  void remove(Node& node) {
    removeName(node);
    const auto first = _byClass.find(node.className());
    if (first->second == &node) {
      replaceByNext(first);
    }
  }

  // A name is changed between these.
  void removeName(Node& node) {
    const auto first = _byName.find(&node);
    if (*first != &node) {
      if (_later) {
        _later->erase(&node);
      }
    } else {
      Later& later = getLater();
      _byName.erase(first);
      const auto next = later.lower_bound(keyOf(node));
      if (next != later.end() && keyOf(**next) == keyOf(node)) {
        _byName.insert(*next);
        later.erase(next);
      }
    }
  }
  void addName(Node& node) {
    const auto [first, isNew] = _byName.insert(&node);
    Node* later = &node;
    if ((*first)->_order > node._order) {
      later = *first;
      _byName.erase(first);
      _byName.insert(&node);
    }
    if (!isNew && _later) {
      _later->insert(later);
    }
  }

  Node* find(const std::string& className) const {
    const auto found = _byClass.find(className);
    return found != _byClass.end() ? found->second : nullptr;
  }
  Node* find(const std::string& className, const std::string& name) const {
    const auto found = _byName.find(Key{className, name});
    return found != _byName.end() ? *found : nullptr;
  }

 private:
  struct Key {
    std::string_view className;
    std::string_view name;

    auto operator<=>(const Key&) const = default;
  };
  static Key keyOf(const Key& key) { return key; }
  static Key keyOf(const Node& node) { return {node.className(), node.getName()}; }
  static Key keyOf(const Node* node) { return keyOf(*node); }

  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const auto& value) const {
      const Key key = keyOf(value);
      const std::hash<std::string_view> hash;
      return 31 * hash(key.className) + hash(key.name);
    }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const { return keyOf(left) == keyOf(right); }
  };
  struct Before {
    using is_transparent = void;
    bool operator()(const Node* left, const Node* right) const {
      return std::tuple(keyOf(left), left->_order) < std::tuple(keyOf(right), right->_order);
    }
    bool operator()(const Node* left, const Key& right) const { return keyOf(left) < right; }
  };
  using ByClass = std::unordered_map<std::string_view, Node*>;
  using Later = std::set<Node*, Before>;

  /// The next of a class is behind the former one: nodes are only added at the end. All searches for
  /// a class pass over each node once.
  void replaceByNext(ByClass::iterator first) {
    const auto begin = findPosition(_nodes, *first->second) + 1;
    const auto next = std::find_if(begin, _nodes.end(), [first](const auto& held) {
      return static_cast<Node*>(held.getObject())->className() == first->first;
    });
    _byClass.erase(first);
    if (next != _nodes.end()) {
      auto* const node = static_cast<Node*>(next->getObject());
      _byClass.emplace(node->className(), node);
    }
  }

  /// Made when it is needed first: few collections change, and many have many nodes of one name.
  Later& getLater() {
    if (!_later) {
      _later = std::make_unique<Later>();
      for (const auto& held : _nodes) {
        auto* const node = static_cast<Node*>(held.getObject());
        if (*_byName.find(node) != node) {
          _later->insert(_later->end(), node);
        }
      }
    }
    return *_later;
  }

  const std::vector<Ptr<Node>>& _nodes;
  ByClass _byClass;
  // The name of a node must not change while it is in these.
  std::unordered_set<Node*, Hash, Equal> _byName;
  /// Those that another one of their class and name is before.
  std::unique_ptr<Later> _later;
};

/// Where a node is among the nodes of its collection.
std::vector<Ptr<Node>>::const_iterator CollectionNode::findPosition(const std::vector<Ptr<Node>>& nodes,
                                                                    const Node& node) {
  return std::ranges::lower_bound(
      nodes, node._order, {}, [](const auto& held) { return static_cast<Node*>(held.getObject())->_order; });
}

CollectionNode::CollectionNode(const NodeInitializer& initializer) : Node(initializer) {}

CollectionNode::~CollectionNode() {
  for (const auto& node : _nodes) {
    static_cast<Node*>(node.getObject())->_owner = nullptr;
  }
}

bool CollectionNode::accepts(const Node& /*node*/) const {
  return true;
}

bool CollectionNode::addNode(Node& node) {
  return append(node);
}

bool CollectionNode::append(Node& node) {
  if (!accepts(node) || !canOwn(*this, node)) {
    return false;
  }
  _nodes.emplace_back(&node);
  node._owner = this;
  node._order = _nextOrder++;
  if (_index) {
    _index->add(node);
  } else if (_nodes.size() == INDEX_THRESHOLD) {
    _index = std::make_unique<Index>(_nodes);
  }
  modified();
  return true;
}

bool CollectionNode::removeNode(Node& node) {
  const auto position = findPosition(_nodes, node);
  if (position == _nodes.end() || position->getObject() != &node) {
    return false;
  }
  if (_index) {
    _index->remove(node);
  }
  node._owner = nullptr;
  node._order = 0;
  _nodes.erase(position);
  modified();
  return true;
}

void CollectionNode::removeAllNodes() {
  _index.reset();
  for (const auto& node : _nodes) {
    static_cast<Node*>(node.getObject())->_owner = nullptr;
    static_cast<Node*>(node.getObject())->_order = 0;
  }
  _nodes.clear();
  modified();
}

void CollectionNode::beforeRenaming(Node& dependent) {
  if (_index && dependent._order != 0) {
    _index->removeName(dependent);
  }
}

void CollectionNode::afterRenaming(Node& dependent) {
  if (_index && dependent._order != 0) {
    _index->addName(dependent);
  }
}

Node* CollectionNode::find(const std::string& className) const {
  if (_index) {
    return _index->find(className);
  }
  for (std::size_t i = 0; i < _nodes.size(); ++i) {
    if (getNode(i).className() == className) {
      return &getNode(i);
    }
  }
  return nullptr;
}

Node* CollectionNode::find(const std::string& className, const std::string& name) const {
  if (_index) {
    return _index->find(className, name);
  }
  for (std::size_t i = 0; i < _nodes.size(); ++i) {
    if (getNode(i).getName() == name && getNode(i).className() == className) {
      return &getNode(i);
    }
  }
  return nullptr;
}

void CollectionNode::listFields(FieldList& fields) {
  Node::listFields(fields);
  fields.add("nodes", this);
}

}  // namespace lum
