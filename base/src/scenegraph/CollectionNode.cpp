#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Traversal.h>

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_set>

namespace lum {

namespace {

/// Below this number of nodes a linear search is faster than an index.
constexpr std::size_t INDEX_THRESHOLD = 16;

}  // namespace

/// Where a collection's nodes of a class, or of a class and name, begin.
class CollectionNode::Index {
 public:
  explicit Index(const std::vector<Ptr<Node>>& nodes) : _nodes(nodes) {
    for (const auto& node : nodes) {
      add(*static_cast<Node*>(node.getObject()));
    }
  }

  void add(Node& node) {
    addTo(_byClass, node);
    addTo(_byName, node);
  }
  void remove(Node& node) {
    removeFrom(_byClass, node);
    removeFrom(_byName, node);
  }
  // A name is changed between these.
  void removeName(Node& node) { removeFrom(_byName, node); }
  void addName(Node& node) { addTo(_byName, node); }

  Node* find(const std::string& className) const { return find(_byClass, {className, {}}); }
  Node* find(const std::string& className, const std::string& name) const {
    return find(_byName, {className, name});
  }

 private:
  struct Key {
    std::string_view className;
    std::string_view name;

    bool operator==(const Key&) const = default;
  };
  static Key keyOf(const Key& key, bool /*named*/) { return key; }
  static Key keyOf(const Node* node, bool named) {
    return {node->className(), named ? std::string_view(node->getName()) : std::string_view()};
  }
  template <bool NAMED>
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(const auto& value) const {
      const Key key = keyOf(value, NAMED);
      const std::hash<std::string_view> hash;
      return 31 * hash(key.className) + hash(key.name);
    }
  };
  template <bool NAMED>
  struct Equal {
    using is_transparent = void;
    bool operator()(const auto& left, const auto& right) const {
      return keyOf(left, NAMED) == keyOf(right, NAMED);
    }
  };
  /// The first node of each key. Its key must not change while it is here.
  template <bool NAMED>
  struct Table {
    std::unordered_set<Node*, Hash<NAMED>, Equal<NAMED>> first;
    /// Whether there may be others of a key than the first.
    bool hasOthers = false;
  };

  template <bool NAMED>
  static void addTo(Table<NAMED>& table, Node& node) {
    const auto [first, isNew] = table.first.insert(&node);
    table.hasOthers = table.hasOthers || !isNew;
    if ((*first)->_order > node._order) {
      table.first.erase(first);
      table.first.insert(&node);
    }
  }
  template <bool NAMED>
  void removeFrom(Table<NAMED>& table, Node& node) {
    const auto first = table.first.find(&node);
    if (first == table.first.end() || *first != &node) {
      return;
    }
    table.first.erase(first);
    if (!table.hasOthers) {
      return;
    }
    const Key key = keyOf(&node, NAMED);
    for (auto next = findPosition(_nodes, node) + 1; next < _nodes.end(); ++next) {
      auto* const other = static_cast<Node*>(next->getObject());
      if (keyOf(other, NAMED) == key) {
        table.first.insert(other);
        return;
      }
    }
  }
  template <bool NAMED>
  static Node* find(const Table<NAMED>& table, const Key& key) {
    const auto found = table.first.find(key);
    return found != table.first.end() ? *found : nullptr;
  }

  const std::vector<Ptr<Node>>& _nodes;
  Table<false> _byClass;
  Table<true> _byName;
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
