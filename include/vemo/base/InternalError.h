#pragma once

#include <vemo/base/Export.h>

#include <exception>
#include <map>
#include <string>

namespace vemo {

/// Named details of an error, sorted by name.
class VEMO_BASE_EXPORT Properties {
 public:
  void set(const std::string& name, const std::string& value) { _values[name] = value; }

  /// Empty when the detail was never set.
  const std::string& get(const std::string& name) const;

  const std::map<std::string, std::string>& all() const { return _values; }

 private:
  std::map<std::string, std::string> _values;
};

/// Root of the errors that report a fault in the program rather than its input.
class VEMO_BASE_EXPORT Error : public std::exception {
 public:
  explicit Error(std::string message, Properties properties = {});
  ~Error() override;

  const char* what() const noexcept override { return _message.c_str(); }
  const std::string& getMessage() const { return _message; }
  const Properties& getProperties() const { return _properties; }

  /// For callers that let the error pass and add where it happened.
  Properties& getProperties() { return _properties; }

 private:
  std::string _message;
  Properties _properties;
};

/// An error after which the current operation cannot be resumed.
class VEMO_BASE_EXPORT NonRecoverableError : public Error {
 public:
  using Error::Error;
  ~NonRecoverableError() override;
};

/// A broken invariant: which expression failed, and where.
class VEMO_BASE_EXPORT InternalError : public NonRecoverableError {
 public:
  /// Expression, file and line are also properties of those names.
  InternalError(const std::string& message, const char* expression, const char* file, int line);
  InternalError(const std::string& message, const Properties& properties);
  ~InternalError() override;

  /// Empty, or 0, when the given properties do not contain them.
  const std::string& getExpression() const { return getProperties().get("expression"); }
  const std::string& getFile() const { return getProperties().get("file"); }
  int getLine() const { return _line; }

 private:
  int _line = 0;
};

/// Throws an InternalError that names the condition, file and line unless the
/// condition holds.
#define VEMO_REQUIRE(condition, message)                                      \
  do {                                                                        \
    if (!(condition)) {                                                       \
      throw ::vemo::InternalError((message), #condition, __FILE__, __LINE__); \
    }                                                                         \
  } while (false)

}  // namespace vemo
