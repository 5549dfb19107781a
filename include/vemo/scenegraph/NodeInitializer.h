#pragma once

#include <string>

namespace lum {

/// The session number of a node that belongs to no session.
inline constexpr int NO_SESSION = -1;

/// What every node is constructed from: the name of its class, always the
/// class's own getClassName(), and the registry session that it lives in.
class NodeInitializer {
 public:
  const std::string& getClassName() const { return _className; }
  int getSessionId() const { return _sessionId; }

 protected:
  NodeInitializer(const std::string& className, int sessionId)
      : _className(className), _sessionId(sessionId) {}

 private:
  const std::string& _className;
  int _sessionId;
};

/// For a node outside any session.
class ClassNameNodeInitializer : public NodeInitializer {
 public:
  explicit ClassNameNodeInitializer(const std::string& className) : NodeInitializer(className, NO_SESSION) {}
};

/// For a node in a session, mostly that of the node which will own it.
class ClassNameAndSessionNodeInitializer : public NodeInitializer {
 public:
  ClassNameAndSessionNodeInitializer(const std::string& className, int sessionId)
      : NodeInitializer(className, sessionId) {}
};

}  // namespace lum
