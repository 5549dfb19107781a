#pragma once

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

namespace lum {

/// Holds one node of a certain class that another node owns.
class VEMO_SCENEGRAPH_EXPORT OwnedSlot {
 public:
  OwnedSlot(const OwnedSlot&) = delete;
  OwnedSlot& operator=(const OwnedSlot&) = delete;

  Node* getNode() const { return _node; }

  /// Puts a node into the slot, or empties it with null. Returns false without
  /// a change when the node is of another class, has an owner, or is the new
  /// owner or one of its ancestors.
  bool put(Node& owner, Node* node);

 protected:
  using Test = bool (*)(const Node&);

  explicit OwnedSlot(Test accepts) : _accepts(accepts) {}
  ~OwnedSlot();

 private:
  void disown();

  PtrBase _holder;
  Node* _node = nullptr;
  Test _accepts;
};

template <class T>
class Owned : public OwnedSlot {
 public:
  Owned() : OwnedSlot([](const Node& node) { return dynamic_cast<const T*>(&node) != nullptr; }) {}

  /// Null when empty.
  T* get() const { return static_cast<T*>(getNode()); }

  /// The node in the slot; created, and named after its class, when there is none.
  T& ensure(Node& owner) {
    if (getNode() == nullptr) {
      Ptr<T> node(new T(ClassNameAndSessionNodeInitializer(T::getClassName(), owner.getSessionId())));
      node->setName(T::getClassName());
      put(owner, &*node);
    }
    return *get();
  }
};

/// Refers to a node that something else owns; becomes empty when that node is
/// destroyed.
class ReferenceSlot {
 public:
  ReferenceSlot(const ReferenceSlot&) = delete;
  ReferenceSlot& operator=(const ReferenceSlot&) = delete;

  Node* getNode() const { return _node.get(); }

  /// False, and nothing changed, when the node is of another class.
  bool put(Node* node) {
    if (node != nullptr && !_accepts(*node)) {
      return false;
    }
    _node = node;
    return true;
  }

 protected:
  using Test = bool (*)(const Node&);

  explicit ReferenceSlot(Test accepts) : _accepts(accepts) {}
  ~ReferenceSlot() = default;

 private:
  WeakPtr<Node> _node;
  Test _accepts;
};

template <class T>
class Reference : public ReferenceSlot {
 public:
  Reference() : ReferenceSlot([](const Node& node) { return dynamic_cast<const T*>(&node) != nullptr; }) {}

  /// Null when empty.
  T* get() const { return static_cast<T*>(getNode()); }
};

}  // namespace lum
