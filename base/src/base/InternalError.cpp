#include <vemo/base/InternalError.h>

#include <charconv>
#include <utility>

namespace vemo {

const std::string& Properties::get(const std::string& name) const {
  static const auto& none = *new std::string;
  const auto found = _values.find(name);
  return found == _values.end() ? none : found->second;
}

Error::Error(std::string message, Properties properties)
    : _message(std::move(message)), _properties(std::move(properties)) {}

// Key functions: one typeinfo per class, so exceptions can be caught across
// libraries.
Error::~Error() = default;
NonRecoverableError::~NonRecoverableError() = default;
InternalError::~InternalError() = default;

InternalError::InternalError(const std::string& message, const char* expression, const char* file, int line)
    : NonRecoverableError(message), _line(line) {
  getProperties().set("expression", expression);
  getProperties().set("file", file);
  getProperties().set("line", std::to_string(line));
}

InternalError::InternalError(const std::string& message, const Properties& properties)
    : NonRecoverableError(message, properties) {
  const std::string& line = properties.get("line");
  std::from_chars(line.data(), line.data() + line.size(), _line);
}

}  // namespace vemo
