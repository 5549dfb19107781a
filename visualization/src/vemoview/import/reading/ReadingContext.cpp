#include "vemoview/import/reading/ReadingContext.h"

#include "scenegraph/inspect/NodePaths.h"
#include "vemoview/import/reading/CopiedText.h"
#include "vemoview/import/reading/HeldFindings.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/scenegraph/Findings.h>

#include <exception>
#include <fmt/format.h>
#include <utility>

namespace vemo {

namespace {

/// Of a name in a path or text.
constexpr std::size_t MAX_NAME_LENGTH = 60;

/// There may be as many paths as elements.
constexpr std::size_t MAX_PATH_LENGTH = 1000;
const std::string FURTHER_PARTS = "/...";

}  // namespace

std::string ReadingContext::pathPart(std::string_view name) {
  return lum::escapeStep(shortened(name));
}

std::string ReadingContext::shortened(std::string_view name) {
  if (name.size() <= MAX_NAME_LENGTH) {
    return std::string(name);
  }
  return beginOf(name, MAX_NAME_LENGTH) + "...";
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

ReadingContext::ItemScope::ItemScope(ReadingContext* context, std::string_view name,
                                     const ElementPlace& place)
    : _context(context), _exceptions(std::uncaught_exceptions()) {
  if (_context != nullptr) {
    ++_context->_itemCount;
    _context->_progress.advance(BYTES_PER_ITEM);
    _context->_items.push_back({name, place});
    _context->_failure = {};
  }
}

ReadingContext::ItemScope::~ItemScope() {
  if (_context == nullptr) {
    return;
  }
  _context->noteFailure(_exceptions);
  _context->_items.pop_back();
}

ReadingContext::AttributeScope::AttributeScope(ReadingContext* context, std::string_view attribute)
    : _context(context != nullptr && !context->_items.empty() ? context : nullptr),
      _exceptions(std::uncaught_exceptions()) {
  if (_context != nullptr) {
    _context->_items.back().attribute = attribute;
    _context->_failure = {};
  }
}

ReadingContext::AttributeScope::~AttributeScope() {
  if (_context != nullptr) {
    _context->noteFailure(_exceptions);
    _context->_items.back().attribute = {};
  }
}

ReadingContext::ThrowingScope::ThrowingScope(ReadingContext* context)
    : _context(context),
      _collectedFaults(context != nullptr && std::exchange(context->_collectsFaults, false)) {}

ReadingContext::ThrowingScope::~ThrowingScope() {
  if (_context != nullptr) {
    _context->_collectsFaults = _collectedFaults;
  }
}

void ReadingContext::noteFailure(int formerExceptions) {
  // The innermost scope is destroyed first: its place is that of the exception.
  if (std::uncaught_exceptions() > formerExceptions && _failure.itemPath.empty()) {
    _failure = getPlace();
  }
}

std::string ReadingContext::getItemPath() const {
  std::string path;
  for (const Item& item : _items) {
    extendPath(path, pathPart(item.name));
  }
  return path;
}

ReadingContext::Place ReadingContext::getPlace() const {
  if (_items.empty()) {
    return {};
  }
  const Item& item = _items.back();
  return {getItemPath(), item.element, std::string(item.attribute)};
}

ReadingContext::Place ReadingContext::getFailurePlace() const {
  return _failure.itemPath.empty() ? getPlace() : _failure;
}

void ReadingContext::addPlaceTo(Exception& exception) const {
  const Place place = getFailurePlace();
  exception.setItemPath(place.itemPath);
  exception.setAttribute(place.attribute);
  // A line that is already set belongs to the entry that was being parsed.
  exception.setLine(place.element.line);
}

void ReadingContext::addPlaceTo(Error& error) const {
  const Place place = getFailurePlace();
  if (error.getProperties().get("itemPath").empty()) {
    error.getProperties().set("itemPath", place.itemPath);
    error.getProperties().set("attribute", place.attribute);
    error.getProperties().set("sceneLine", std::to_string(place.element.line));
  }
}

void ReadingContext::report(FindingCode code, const std::string& text, const std::string& entry,
                            const std::string& attribute) {
  // No exception is propagating: an earlier one has been handled.
  _failure = {};
  const Place place = getPlace();
  report({code, text, entry, place.itemPath, place.element.line,
          attribute.empty() ? place.attribute : attribute, place.element.number});
}

void ReadingContext::reportReplaced(FindingCode code, const std::string& text, const ElementPlace& earlier,
                                    const std::string& entry, const std::string& path) {
  const Place place = getPlace();
  const std::string line =
      place.element.line > 0 ? " (line " + std::to_string(place.element.line) + ')' : std::string();
  report({code, text + line, entry, path.empty() ? place.itemPath : path, earlier.line, {}, earlier.number});
}

bool ReadingContext::isOfUnused(const Finding& finding) const {
  return _areItemsUnused && finding.code != FindingCode::ENTRY_SHORT &&
         finding.code != FindingCode::CHECKSUM_WRONG;
}

bool ReadingContext::isConsequence(const Finding& finding) const {
  return !finding.attribute.empty() && finding.element != 0 && finding.getSeverity() <= Severity::CHANGED &&
         _unreadable.contains({finding.element, finding.attribute});
}

bool ReadingContext::isListed(const Finding& finding) {
  if (finding.code == FindingCode::VALUE_UNREADABLE) {
    _unreadable.emplace(finding.element, finding.attribute);
  }
  if (++_counts[finding.code] <= getLimit()) {
    return true;
  }
  if (_collectsFaults && !_reportsAll) {
    _marks.push_back({finding.code, finding.entry, finding.attribute, finding.element});
  }
  return false;
}

void ReadingContext::report(Finding finding) {
  if (isOfUnused(finding) || isConsequence(finding) || (_held != nullptr && _held->hold(finding))) {
    return;
  }
  if (!isListed(finding)) {
    if (_reportsAll || _counts[finding.code] > getLimit() + 1) {
      return;
    }
    finding = {finding.code, "Further findings of this kind are not listed"};
  }
  _findings.push_back(std::move(finding));
  Findings::getSingleton().report(_findings.back());
}

void ReadingContext::reportUnlisted() {
  for (const auto& [code, count] : _counts) {
    if (count > getLimit()) {
      reportFinding(code, describeUnlisted(count - getLimit()));
    }
  }
}

void ReadingContext::keepConsequence(FindingCode code, const std::string& entry) {
  if (_collectsFaults) {
    const Place place = getPlace();
    _marks.push_back({code, entry, place.attribute, place.element.number});
  }
}

void ReadingContext::keepFault(Finding fault) {
  if (++_faultCount == 1) {
    _firstFault = std::current_exception();
  }
  fault.element = getFailurePlace().element.number;
  if (!isListed(fault)) {
    return;
  }
  _findings.push_back(std::move(fault));
  if (_reportsAll) {
    Findings::getSingleton().report(_findings.back());
  }
}

void ReadingContext::throwFirstFault() const {
  if (_firstFault) {
    std::rethrow_exception(_firstFault);
  }
}

void ReadingContext::keepCurrentException() {
  try {
    throw;
  } catch (UnreadableException& exception) {
    addPlaceTo(exception);
    // It is no fault of the scene: nothing else is looked for.
    throw;
  } catch (Exception& exception) {
    addPlaceTo(exception);
    keepFault(findingOf(exception));
  } catch (Error& error) {
    addPlaceTo(error);
    keepFault(findingOf(error));
  }
}

void report(ReadingContext* context, FindingCode code, const std::string& text) {
  if (context != nullptr) {
    context->report(code, text);
  } else {
    reportFinding(code, text);
  }
}

void keepConsequence(ReadingContext* context, FindingCode code) {
  if (context != nullptr) {
    context->keepConsequence(code);
  }
}

}  // namespace vemo
