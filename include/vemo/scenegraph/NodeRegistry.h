#pragma once

#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace lum {

/// The nodes of one session. It lists them without keeping them alive, except
/// those that it was given to keep.
class VEMO_SCENEGRAPH_EXPORT NodeRegistry {
 public:
  NodeRegistry(const NodeRegistry&) = delete;
  NodeRegistry& operator=(const NodeRegistry&) = delete;

  /// The registry of an open session; throws InternalError for any other number.
  static NodeRegistry& getSingleton(int sessionId);

  /// All nodes of exactly this class, in the order in which they were made.
  std::vector<Node*> getNodes(const std::string& className) const;

  /// Keeps a node, and with it all that it owns, until the session ends.
  void keep(Node& node);

  /// Releases the nodes that it was given to keep; the session stays open.
  void release();

 protected:
  /// The first node of a name; one is made, of the class that the property
  /// "class" names, when there is none. Null when it names no class.
  Node* getNode(const std::string& name, bool& created, vemo::Properties& properties);

 private:
  friend class Node;
  friend class NodeRegistrySessions;

  explicit NodeRegistry(int sessionId) : _sessionId(sessionId) {}
  ~NodeRegistry();

  void add(Node& node);
  void remove(Node& node);

  int _sessionId;
  Node* _first = nullptr;
  Node* _last = nullptr;
  std::vector<Ptr<Node>> _kept;
};

/// The sessions of the process: namespaces of nodes. Used from one thread at a
/// time.
class VEMO_SCENEGRAPH_EXPORT NodeRegistrySessions {
 public:
  static NodeRegistrySessions& getSingleton();

  /// Opens a session; its number was never used before.
  int createSession();

  /// Ends a session and releases the nodes its registry kept. Nodes that
  /// something else holds live on outside of any registry. False for an unknown
  /// session.
  bool destroySession(int sessionId);

  bool hasSession(int sessionId) const { return find(sessionId) != nullptr; }

 private:
  friend class Node;
  friend class NodeRegistry;

  struct Deleter {
    void operator()(NodeRegistry* registry) const { delete registry; }
  };

  NodeRegistrySessions() = default;
  ~NodeRegistrySessions() = default;

  NodeRegistry* find(int sessionId) const;
  void enter(Node& node);

  std::map<int, std::unique_ptr<NodeRegistry, Deleter>> _sessions;
  int _nextSessionId = 0;
};

}  // namespace lum
