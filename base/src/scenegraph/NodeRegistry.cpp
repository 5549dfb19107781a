#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/NodeRegistry.h>

#include <utility>

namespace lum {

NodeRegistry& NodeRegistry::getSingleton(int sessionId) {
  NodeRegistry* registry = NodeRegistrySessions::getSingleton().find(sessionId);
  VEMO_REQUIRE(registry != nullptr, "Unknown session " + std::to_string(sessionId));
  return *registry;
}

NodeRegistry::~NodeRegistry() {
  while (_first != nullptr) {
    remove(*_first);
  }
}

std::vector<Node*> NodeRegistry::getNodes(const std::string& className) const {
  std::vector<Node*> nodes;
  for (Node* node = _first; node != nullptr; node = node->_nextInSession) {
    if (node->className() == className) {
      nodes.push_back(node);
    }
  }
  return nodes;
}

void NodeRegistry::keep(Node& node) {
  _kept.emplace_back(&node);
}

void NodeRegistry::release() {
  // Nodes may look up their registry while being destroyed.
  const auto released = std::exchange(_kept, {});
}

Node* NodeRegistry::getNode(const std::string& name, bool& created, vemo::Properties& properties) {
  created = false;
  for (Node* node = _first; node != nullptr; node = node->_nextInSession) {
    if (node->getName() == name) {
      return node;
    }
  }
  const std::string& className = properties.get("class");
  const Ptr<Node> node = createNode(ClassNameAndSessionNodeInitializer(className, _sessionId));
  if (!node) {
    return nullptr;
  }
  node->setName(name);
  keep(*node);
  created = true;
  return node.get();
}

void NodeRegistry::add(Node& node) {
  node._registry = this;
  node._previousInSession = _last;
  (_last != nullptr ? _last->_nextInSession : _first) = &node;
  _last = &node;
}

void NodeRegistry::remove(Node& node) {
  Node* previous = node._previousInSession;
  Node* next = node._nextInSession;
  (previous != nullptr ? previous->_nextInSession : _first) = next;
  (next != nullptr ? next->_previousInSession : _last) = previous;
  node._registry = nullptr;
  node._previousInSession = nullptr;
  node._nextInSession = nullptr;
}

NodeRegistrySessions& NodeRegistrySessions::getSingleton() {
  // Never destroyed: sessions that are left open may hold nodes until the very
  // end of the process.
  static NodeRegistrySessions& sessions = *new NodeRegistrySessions;
  return sessions;
}

int NodeRegistrySessions::createSession() {
  const int sessionId = _nextSessionId++;
  _sessions.emplace(sessionId, new NodeRegistry(sessionId));
  return sessionId;
}

bool NodeRegistrySessions::destroySession(int sessionId) {
  const auto session = _sessions.find(sessionId);
  if (session == _sessions.end()) {
    return false;
  }
  // Nodes may look up their session while being destroyed.
  const auto registry = std::move(session->second);
  _sessions.erase(session);
  return true;
}

NodeRegistry* NodeRegistrySessions::find(int sessionId) const {
  const auto session = _sessions.find(sessionId);
  return session == _sessions.end() ? nullptr : session->second.get();
}

void NodeRegistrySessions::enter(Node& node) {
  if (NodeRegistry* registry = find(node.getSessionId())) {
    registry->add(node);
  }
}

}  // namespace lum
