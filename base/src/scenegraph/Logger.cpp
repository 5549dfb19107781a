#include <vemo/scenegraph/Logger.h>

namespace vemo {

Logger& Logger::getSingleton() {
  // Never destroyed: at-exit functions log.
  static Logger& logger = *new Logger;
  return logger;
}

bool Logger::isEnabled(Level level) const {
  switch (level) {
    case Level::ERROR:
      return (_flags & ERROR_FLAG) != 0;
    case Level::WARNING:
      return (_flags & WARNING_FLAG) != 0;
    case Level::INFO:
      break;
  }
  return (_flags & INFO_FLAG) != 0;
}

void Logger::log(const std::string& text, const char* file, int line, Level /*level*/) const {
  if (!_sink) {
    return;
  }
  if ((_flags & SOURCE_FLAG) == 0) {
    _sink(text);
    return;
  }
  _sink(file + (":" + std::to_string(line)) + " " + text);
}

}  // namespace vemo
