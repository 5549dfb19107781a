#include "vemoview/import/reading/ReadingContext.h"

#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/scenegraph/Findings.h>

#include <exception>
#include <utility>

namespace vemo {

namespace {

/// Of an item's name in a path: names in untrusted files may be as long as the file.
constexpr std::size_t MAX_NAME_LENGTH = 60;

/// There may be as many paths as elements.
constexpr std::size_t MAX_PATH_LENGTH = 1000;
const std::string FURTHER_PARTS = "/...";

}  // namespace

std::string ReadingContext::pathPart(const std::string& name) {
  if (name.size() <= MAX_NAME_LENGTH) {
    return name;
  }
  // Truncated between characters.
  std::size_t end = MAX_NAME_LENGTH;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) {
    --end;
  }
  return name.substr(0, end) + "...";
}

void ReadingContext::extendPath(std::string& path, const std::string& part) {
  if (path.empty()) {
    path = part;
  } else if (path.size() < MAX_PATH_LENGTH) {
    path += "/" + part;
  } else if (!path.ends_with(FURTHER_PARTS)) {
    path += FURTHER_PARTS;
  }
}

ReadingContext::ItemScope::ItemScope(ReadingContext* context, const std::string& name, int line)
    : _context(context), _exceptions(std::uncaught_exceptions()) {
  if (_context != nullptr) {
    _context->_items.push_back({pathPart(name), line});
    _context->_failure = {};
  }
}

ReadingContext::ItemScope::~ItemScope() {
  if (_context == nullptr) {
    return;
  }
  // The innermost scope goes first: its place is the exception's.
  if (std::uncaught_exceptions() > _exceptions && _context->_failure.itemPath.empty()) {
    _context->_failure = _context->getPlace();
  }
  _context->_items.pop_back();
}

std::string ReadingContext::getItemPath() const {
  std::string path;
  for (const Item& item : _items) {
    extendPath(path, item.name);
  }
  return path;
}

ReadingContext::Place ReadingContext::getPlace() const {
  return {getItemPath(), _items.empty() ? 0 : _items.back().line};
}

void ReadingContext::addPlaceTo(Exception& exception) const {
  const Place place = _failure.itemPath.empty() ? getPlace() : _failure;
  exception.setItemPath(place.itemPath);
  // A line in hand is one of the entry that was being parsed.
  exception.setLine(place.line);
}

void ReadingContext::addPlaceTo(Error& error) const {
  const Place place = _failure.itemPath.empty() ? getPlace() : _failure;
  if (error.getProperties().get("itemPath").empty()) {
    error.getProperties().set("itemPath", place.itemPath);
    error.getProperties().set("sceneLine", std::to_string(place.line));
  }
}

void ReadingContext::report(FindingCode code, const std::string& text, const std::string& entry,
                            const std::string& attribute) {
  const Place place = getPlace();
  report({code, text, entry, place.itemPath, place.line, attribute});
}

void ReadingContext::report(Finding finding) {
  std::size_t& count = _counts[finding.code];
  ++count;
  if (count > MAX_FINDINGS && !_collectsFaults) {
    if (count > MAX_FINDINGS + 1) {
      return;
    }
    finding = {finding.code, "Further findings of this kind are not listed"};
  }
  _findings.push_back(std::move(finding));
  Findings::getSingleton().report(_findings.back());
}

void ReadingContext::reportCurrentException() {
  try {
    throw;
  } catch (Exception& exception) {
    addPlaceTo(exception);
    report(findingOf(exception));
  } catch (Error& error) {
    addPlaceTo(error);
    report(findingOf(error));
  }
}

void report(ReadingContext* context, FindingCode code, const std::string& text) {
  if (context != nullptr) {
    context->report(code, text);
  } else {
    reportFinding(code, text);
  }
}

}  // namespace vemo
