#include "vemoview/import/reading/HeldFindings.h"

#include "vemoview/import/reading/ReadingContext.h"

#include <algorithm>
#include <new>

namespace vemo {

HeldFindings::HeldFindings(ReadingContext* context, Names names) : _context(context), _names(names) {
  if (_context != nullptr) {
    _outer = std::exchange(_context->_held, this);
    _depth = _context->_items.size();
  }
}

HeldFindings::~HeldFindings() {
  if (std::uncaught_exceptions() == _exceptions) {
    stop();
    return;
  }
  try {
    release();
  } catch (const std::bad_alloc&) {
    // The other exception is reported.
    stop();
  }
}

void HeldFindings::stop() {
  if (ReadingContext* const context = std::exchange(_context, nullptr)) {
    context->_held = _outer;
  }
}

bool HeldFindings::hold(const Finding& finding) {
  const std::size_t depth = _context->_items.size();
  // The components of a vector are attributes of a child element.
  const bool isOfVector = depth == _depth + 1;
  const std::string_view name = isOfVector ? _context->_items.back().name : finding.attribute;
  const auto known = std::ranges::find(_names, name);
  if (finding.code != FindingCode::VALUE_UNREADABLE || depth > _depth + 1 || known == _names.end()) {
    return false;
  }
  _held.emplace_back(*known, finding);
  return true;
}

HeldFindings::List::iterator HeldFindings::find(Names names) {
  return std::ranges::find_if(
      _held, [&](const auto& held) { return std::ranges::find(names, held.first) != names.end(); });
}

std::string HeldFindings::describe(Names names, const std::string& consequence,
                                   const std::string& otherwise) {
  const auto cause = find(names);
  if (cause == _held.end()) {
    return otherwise;
  }
  const std::string text = cause->second.text + ", and " + consequence;
  _held.erase(cause);
  return text;
}

bool HeldFindings::reportHidden(Names names, const std::string& consequence) {
  const auto cause = find(names);
  if (cause == _held.end()) {
    return false;
  }
  const std::string attribute(cause->first);
  _context->report(FindingCode::HIDDEN_BY_FAULT, describe(names, consequence), {}, attribute);
  return true;
}

void HeldFindings::release() {
  ReadingContext* const context = _context;
  stop();
  for (auto& [name, finding] : _held) {
    context->report(std::move(finding));
  }
  _held.clear();
}

}  // namespace vemo
