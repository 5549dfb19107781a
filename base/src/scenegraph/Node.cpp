#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/Owned.h>

namespace lum {

namespace {

std::uint64_t nextModificationTime() {
  static std::atomic<std::uint64_t> time{0};
  return ++time;
}

}  // namespace

Node::Node(const NodeInitializer& initializer) : _sessionId(initializer.getSessionId()) {
  NodeRegistrySessions::getSingleton().enter(*this);
}

Node::~Node() {
  if (_registry != nullptr) {
    _registry->remove(*this);
  }
}

void Node::setName(const std::string& name) {
  if (name == _name) {
    return;
  }
  const std::string formerName = std::exchange(_name, name);
  if (_owner != nullptr) {
    _owner->dependentRenamed(*this, formerName);
  }
  modified();
}

void Node::setQualifiedName(const std::string& name) {
  assign(_qualifiedName, name);
}

std::vector<Node*> Node::getDependents() const {
  std::vector<Node*> dependents;
  for (const Field& field : getFields()) {
    if (const auto* slot = std::get_if<OwnedSlot*>(&field.value)) {
      if (Node* node = (*slot)->getNode()) {
        dependents.push_back(node);
      }
    } else if (const auto* collection = std::get_if<CollectionNode*>(&field.value)) {
      for (const auto& node : (*collection)->getNodes()) {
        dependents.push_back(static_cast<Node*>(node.getObject()));
      }
    }
  }
  return dependents;
}

void Node::listFields(FieldList& /*fields*/) {}

FieldList Node::getFields() const {
  FieldList fields;
  const_cast<Node*>(this)->listFields(fields);
  return fields;
}

void Node::modified() {
  _modificationTime = nextModificationTime();
}

void Node::dependentRenamed(Node& /*node*/, const std::string& /*formerName*/) {}

}  // namespace lum
