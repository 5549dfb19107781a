#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/Owned.h>

namespace lum {

namespace {

// Never destroyed: nodes may live until the very end of the process.
const std::string& noName() {
  static const std::string& name = *new std::string;
  return name;
}
const std::optional<std::string>& noQualifiedName() {
  static const std::optional<std::string>& name = *new std::optional<std::string>;
  return name;
}

std::uint64_t nextModificationTime() {
  static std::atomic<std::uint64_t> time{0};
  return ++time;
}

}  // namespace

Node::Node(const NodeInitializer& initializer) : _name(&noName()), _sessionId(initializer.getSessionId()) {
  NodeRegistrySessions::getSingleton().enter(*this);
}

Node::~Node() {
  if (_registry != nullptr) {
    _registry->remove(*this);
  }
}

void Node::setName(const std::string& name) {
  if (name == *_name) {
    return;
  }
  if (_owner != nullptr) {
    _owner->beforeRenaming(*this);
  }
  putName(name);
  if (_owner != nullptr) {
    _owner->afterRenaming(*this);
  }
  modified();
}

void Node::putName(const std::string& name) {
  const bool isShared = name.empty() || name == className();
  auto ownName = isShared ? nullptr : std::make_unique<const std::string>(name);
  _name = !isShared ? ownName.get() : name.empty() ? &noName() : &className();
  _ownName = std::move(ownName);
}

const std::optional<std::string>& Node::getQualifiedName() const {
  return _qualifiedName ? *_qualifiedName : noQualifiedName();
}

void Node::setQualifiedName(const std::string& name) {
  if (!_qualifiedName) {
    _qualifiedName = std::make_unique<std::optional<std::string>>();
  }
  assign(*_qualifiedName, name);
}

std::vector<Node*> Node::getDependents() const {
  std::vector<Node*> dependents;
  FieldList fields;
  appendDependents(dependents, fields);
  return dependents;
}

void Node::appendDependents(std::vector<Node*>& dependents, FieldList& fields) const {
  fields.clear();
  const_cast<Node*>(this)->listFields(fields);
  for (const Field& field : fields) {
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

void Node::beforeRenaming(Node& /*dependent*/) {}
void Node::afterRenaming(Node& /*dependent*/) {}

}  // namespace lum
