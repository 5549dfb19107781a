#pragma once

#include <string>
#include <utility>

namespace lum {

/// The session number of a node that belongs to no session.
inline constexpr int NO_SESSION = -1;

/// What every node is constructed from: the name of its class, always the
/// class's own getClassName(), and the registry session that it lives in.
class NodeInitializer {
 public:
  NodeInitializer(const NodeInitializer&) = delete;
  NodeInitializer& operator=(const NodeInitializer&) = delete;

  const std::string& getClassName() const { return *_className; }
  int getSessionId() const { return _sessionId; }

 protected:
  ~NodeInitializer() = default;

  /// The name must outlive the initializer, unless it is a temporary.
  NodeInitializer(const std::string& className, int sessionId)
      : _className(&className), _sessionId(sessionId) {}
  NodeInitializer(std::string&& className, int sessionId)
      : _ownClassName(std::move(className)), _className(&_ownClassName), _sessionId(sessionId) {}

 private:
  std::string _ownClassName;
  const std::string* _className;
  int _sessionId;
};

/// For a node outside any session.
class ClassNameNodeInitializer : public NodeInitializer {
 public:
  explicit ClassNameNodeInitializer(const std::string& className) : NodeInitializer(className, NO_SESSION) {}
  explicit ClassNameNodeInitializer(std::string&& className)
      : NodeInitializer(std::move(className), NO_SESSION) {}
};

/// For a node in a session, mostly that of the node which will own it.
class ClassNameAndSessionNodeInitializer : public NodeInitializer {
 public:
  ClassNameAndSessionNodeInitializer(const std::string& className, int sessionId)
      : NodeInitializer(className, sessionId) {}
  ClassNameAndSessionNodeInitializer(std::string&& className, int sessionId)
      : NodeInitializer(std::move(className), sessionId) {}
};

}  // namespace lum
