#pragma once

#include <vemo/base/Export.h>

#include <exception>
#include <map>
#include <string>

namespace vemo {

/// Named details of an error, in the order of their names.
class VEMO_BASE_EXPORT Properties {
 public:
  void set(const std::string& name, const std::string& value) { _values[name] = value; }

  /// The value of a detail; empty when it was never set.
  const std::string& get(const std::string& name) const;

  const std::map<std::string, std::string>& all() const { return _values; }

 private:
  std::map<std::string, std::string> _values;
};

/// Root of the errors that tell of a fault in the program, not in its input.
class VEMO_BASE_EXPORT Error : public std::exception {
 public:
  explicit Error(std::string message, Properties properties = {});
  ~Error() override;

  const char* what() const noexcept override { return _message.c_str(); }
  const std::string& getMessage() const { return _message; }
  const Properties& getProperties() const { return _properties; }

  /// Whoever lets the error pass may note where it happened.
  Properties& getProperties() { return _properties; }

 private:
  std::string _message;
  Properties _properties;
};

/// An error after which the operation under way cannot be resumed.
class VEMO_BASE_EXPORT NonRecoverableError : public Error {
 public:
  using Error::Error;
  ~NonRecoverableError() override;
};

/// A broken invariant: which expression failed, and where.
class VEMO_BASE_EXPORT InternalError : public NonRecoverableError {
 public:
  /// The expression, file and line are kept as properties of those names too.
  InternalError(const std::string& message, const char* expression, const char* file, int line);
  InternalError(const std::string& message, const Properties& properties);
  ~InternalError() override;

  /// Empty, and 0, when the properties given do not name them.
  const std::string& getExpression() const { return getProperties().get("expression"); }
  const std::string& getFile() const { return getProperties().get("file"); }
  int getLine() const { return _line; }

 private:
  int _line = 0;
};

/// Throws an InternalError that names the condition and this place unless the
/// condition holds.
#define VEMO_REQUIRE(condition, message)                                      \
  do {                                                                        \
    if (!(condition)) {                                                       \
      throw ::vemo::InternalError((message), #condition, __FILE__, __LINE__); \
    }                                                                         \
  } while (false)

}  // namespace vemo
