#pragma once

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lum {

/// A node that owns an ordered set of nodes. Finding one by class, or by class
/// and name, takes constant time, respects later calls of setName, and returns
/// the first of several.
class VEMO_SCENEGRAPH_EXPORT CollectionNode : public Node {
 public:
  explicit CollectionNode(const NodeInitializer& initializer);

  std::size_t getNodeCount() const { return _nodes.size(); }
  Node& getNode(std::size_t index) const { return *static_cast<Node*>(_nodes[index].getObject()); }
  std::span<const Ptr<Node>> getNodes() const { return _nodes; }

  /// Appends a node. False, without a change, when the collection does not take
  /// nodes of its class, the node has an owner, or it is an owner of
  /// this collection.
  virtual bool addNode(Node& node);

  /// False when the node is not in this collection.
  bool removeNode(Node& node);
  void removeAllNodes();

  /// The first node of exactly this class; null when there is none.
  Node* find(const std::string& className) const;
  /// The first node of exactly this class and name; null when there is none.
  Node* find(const std::string& className, const std::string& name) const;

  template <class T>
  T* find() const {
    return static_cast<T*>(find(T::getClassName()));
  }
  template <class T>
  T* find(const std::string& name) const {
    return static_cast<T*>(find(T::getClassName(), name));
  }

  /// The first T; when there is none a new one, named after its class.
  template <class T>
  T& findOrCreate() {
    T* found = find<T>();
    return found != nullptr ? *found : create<T>(T::getClassName());
  }
  /// The first T of this name, made when there is none.
  template <class T>
  T& findOrCreate(const std::string& name) {
    T* found = find<T>(name);
    return found != nullptr ? *found : create<T>(name);
  }

  void listFields(FieldList& fields) override;

 protected:
  ~CollectionNode() override;

  /// Whether the node may be added.
  virtual bool accepts(const Node& node) const;

  void beforeRenaming(Node& dependent) override;
  void afterRenaming(Node& dependent) override;

 private:
  class Index;
  friend class io::GraphDecoder;

  /// Adds a node as it is.
  bool append(Node& node);
  template <class T>
  T& create(const std::string& name) {
    Ptr<T> node(new T(ClassNameAndSessionNodeInitializer(T::getClassName(), getSessionId())));
    node->setName(name);
    VEMO_REQUIRE(addNode(*node), "The collection \"" + getName() + "\" does not take " + T::getClassName());
    return *node;
  }
  static std::vector<Ptr<Node>>::const_iterator findPosition(const std::vector<Ptr<Node>>& nodes,
                                                             const Node& node);

  std::vector<Ptr<Node>> _nodes;
  std::uint64_t _nextOrder = 1;
  // Only large collections have one.
  std::unique_ptr<Index> _index;
};

}  // namespace lum
