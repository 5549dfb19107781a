#pragma once

#include <vemo/base/SameBits.h>
#include <vemo/scenegraph/DeclareFields.h>
#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/Object.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace lum::io {

class GraphDecoder;

}

namespace lum {

using vemo::sameBits;

class NodeRegistry;
class NodeStream;

/// A named object of the scene graph. It is owned by at most one other node,
/// may be referred to by any, and lives in a registry session or in none.
///
/// A class of nodes says its name once (LUM_NODE), declares each field once
/// (DeclareFields.h) and has one row in NodeFactory.cpp. Reading, writing,
/// printing and comparing follow from these.
class VEMO_SCENEGRAPH_EXPORT Node : public Object {
 public:
  /// No node of a graph that is read or written is further than this from the
  /// graph's root, which is at depth 1.
  static constexpr int MAX_DEPTH = 256;

  explicit Node(const NodeInitializer& initializer);

  /// The C++ name of the node's class, without its namespace.
  virtual const std::string& className() const = 0;

  const std::string& getName() const { return *_name; }
  void setName(const std::string& name);

  /// Empty until it is set.
  const std::optional<std::string>& getQualifiedName() const;
  void setQualifiedName(const std::string& name);

  /// NO_SESSION outside any session.
  int getSessionId() const { return _sessionId; }

  /// The node that owns this one; null for a root.
  Node* getOwner() const { return _owner; }

  /// The nodes that this one owns, each once, in order.
  std::vector<Node*> getDependents() const;
  /// The same, for many nodes one after the other.
  /// @param fields is written over
  void appendDependents(std::vector<Node*>& dependents, FieldList& fields) const;

  /// Appends the class's fields, those of its base class first.
  virtual void listFields(FieldList& fields);

  /// The fields of a node that is not changed: for reading only.
  FieldList getFields() const;

  /// Grows with every change to any node; 0 for an unmodified node.
  std::uint64_t getModificationTime() const { return _modificationTime; }

  /// Writes the node and all that it owns.
  void write(NodeStream& stream) const;

  /// Writes those nodes of this graph that changed since the stream last saw
  /// them.
  void writeChanges(NodeStream& stream) const;

 protected:
  ~Node() override;

  /// Marks the node as changed.
  void modified();

  /// Gives a member a new value and marks the node as changed if it differs.
  template <class T>
  void assign(T& member, const std::type_identity_t<T>& value) {
    if (!sameBits(member, value)) {
      member = value;
      modified();
    }
  }

  /// Called before and after an owned node gets another name.
  virtual void beforeRenaming(Node& dependent);
  virtual void afterRenaming(Node& dependent);

 private:
  friend class CollectionNode;
  friend class NodeRegistry;
  friend class OwnedSlot;
  friend class io::GraphDecoder;

  /// Replaces the name, and leaves the rest as it is.
  void putName(const std::string& name);

  // Most nodes are named after their class, and share that name. Scenes may have
  // a great many nodes, few of them with a name of their own or a qualified one.
  const std::string* _name;
  std::unique_ptr<const std::string> _ownName;
  std::unique_ptr<std::optional<std::string>> _qualifiedName;
  Node* _owner = nullptr;
  // Grows from first to last among siblings in a collection, with gaps.
  std::uint64_t _order = 0;
  std::uint64_t _modificationTime = 0;
  // The session's registry links its nodes in a list.
  NodeRegistry* _registry = nullptr;
  Node* _previousInSession = nullptr;
  Node* _nextInSession = nullptr;
  int _sessionId;
};

}  // namespace lum
