#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Traversal.h>

#include <algorithm>
#include <map>
#include <unordered_map>

namespace lum {

namespace {

/// Below this number of nodes a linear search is faster than an index.
constexpr std::size_t INDEX_THRESHOLD = 16;

}  // namespace

/// Nodes by class, and by class and name, each set in the collection's order.
class CollectionNode::Index {
 public:
  void add(Node& node) {
    _byClass[node.className()].emplace(node._order, &node);
    _byName[key(node.className(), node.getName())].emplace(node._order, &node);
  }
  void remove(Node& node) {
    erase(_byClass, node.className(), node);
    erase(_byName, key(node.className(), node.getName()), node);
  }
  void rename(Node& node, const std::string& formerName) {
    erase(_byName, key(node.className(), formerName), node);
    _byName[key(node.className(), node.getName())].emplace(node._order, &node);
  }

  Node* find(const std::string& className) const { return first(_byClass, className); }
  Node* find(const std::string& className, const std::string& name) const {
    return first(_byName, key(className, name));
  }

 private:
  using Bucket = std::map<std::uint64_t, Node*>;
  using Table = std::unordered_map<std::string, Bucket>;

  // Class names hold no blank, so that different pairs have different keys.
  static std::string key(const std::string& className, const std::string& name) {
    return className + ' ' + name;
  }
  static void erase(Table& table, const std::string& key, const Node& node) {
    const auto bucket = table.find(key);
    bucket->second.erase(node._order);
    if (bucket->second.empty()) {
      table.erase(bucket);
    }
  }
  static Node* first(const Table& table, const std::string& key) {
    const auto bucket = table.find(key);
    return bucket == table.end() ? nullptr : bucket->second.begin()->second;
  }

  Table _byClass;
  Table _byName;
};

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
  if (!accepts(node) || !canOwn(*this, node)) {
    return false;
  }
  _nodes.emplace_back(&node);
  node._owner = this;
  node._order = _nextOrder++;
  if (_index) {
    _index->add(node);
  } else {
    buildIndexWhenLarge();
  }
  modified();
  return true;
}

bool CollectionNode::removeNode(Node& node) {
  const auto position =
      std::ranges::find_if(_nodes, [&node](const auto& held) { return held.getObject() == &node; });
  if (position == _nodes.end()) {
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

void CollectionNode::buildIndexWhenLarge() {
  if (_nodes.size() < INDEX_THRESHOLD) {
    return;
  }
  _index = std::make_unique<Index>();
  for (std::size_t i = 0; i < _nodes.size(); ++i) {
    _index->add(getNode(i));
  }
}

void CollectionNode::dependentRenamed(Node& node, const std::string& formerName) {
  if (_index && node._order != 0) {
    _index->rename(node, formerName);
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
