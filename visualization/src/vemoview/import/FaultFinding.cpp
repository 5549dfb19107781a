#include <vemo/base/InternalError.h>
#include <vemo/base/PrintableText.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>

#include <fmt/format.h>
#include <string>

namespace vemo {

namespace {

template <class T>
bool is(const Exception& exception) {
  return dynamic_cast<const T*>(&exception) != nullptr;
}

/// Whether the archive cannot be read at all: what names no place is about the whole file.
bool isOfArchive(const Exception& exception) {
  return is<ZipException>(exception) || is<FileNotFoundException>(exception) || exception.getPlace().empty();
}

FindingCode codeOf(const Exception& exception) {
  return is<FutureVersionException>(exception)  ? FindingCode::VERSION_TOO_NEW
         : is<NumberFormatException>(exception) ? FindingCode::NUMBER_INVALID
         : is<XMLException>(exception)          ? FindingCode::XML_INVALID
         : isOfArchive(exception)               ? FindingCode::ARCHIVE_INVALID
                                                : FindingCode::ENTRY_INVALID;
}

/// A sentence before the cause loses its full stop.
std::string withCause(const std::string& message, const std::string& cause) {
  if (cause.empty()) {
    return message;
  }
  const bool isSentence = message.ends_with('.');
  return message.substr(0, message.size() - (isSentence ? 1 : 0)) + ": " + cause;
}

}  // namespace

std::string describe(const Exception& exception) {
  const std::string message = withCause(exception.getMessage(), exception.getCause());
  if (is<FutureVersionException>(exception) && message.empty()) {
    return "The scene was written by a newer version of the software";
  }
  return is<NumberFormatException>(exception) ? fmt::format("\"{}\" is not a number", message) : message;
}

Finding findingOf(const Exception& exception) {
  return {codeOf(exception),    replaceBreaks(describe(exception), ' '),
          exception.getEntry(), exception.getItemPath(),
          exception.getLine(),  exception.getAttribute()};
}

Finding findingOf(const Error& error) {
  const Properties& place = error.getProperties();
  const std::string& line = place.get("sceneLine");
  return {FindingCode::ITEM_INVALID,
          replaceBreaks(withCause(error.getMessage(), place.get("cause")), ' '),
          place.get("entry"),
          place.get("itemPath"),
          line.empty() ? 0 : std::stoi(line),
          place.get("attribute")};
}

}  // namespace vemo
