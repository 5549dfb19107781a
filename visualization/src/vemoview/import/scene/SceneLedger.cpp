#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneLedger.h>
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/geometry/GeometrySettings.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

namespace {

Outcome outcomeOf(FindingCode code) {
  switch (code) {
    case FindingCode::ELEMENT_UNKNOWN:
    case FindingCode::ATTRIBUTE_UNKNOWN:
      return Outcome::UNKNOWN;
    case FindingCode::ATTRIBUTE_WITHOUT_EFFECT:
    case FindingCode::DESCRIPTION_REPLACED:
      return Outcome::UNUSED;
    case FindingCode::POINTS_WITHOUT_POSITION:
      // It is only not drawn.
      return Outcome::KEPT;
    default:
      break;
  }
  switch (Finding{code}.getSeverity()) {
    case Severity::NOTE:
      return Outcome::KEPT;
    case Severity::CHANGED:
      return Outcome::CHANGED;
    case Severity::LOST:
      return Outcome::LOST;
    case Severity::REFUSED:
      break;
  }
  return Outcome::REFUSED;
}

/// Without findings.
Outcome outcomeOf(const QxElement::Attribute& attribute) {
  return attribute.isUnused()         ? Outcome::UNUSED
         : attribute.isPartlyUnused() ? Outcome::CHANGED
                                      : Outcome::KEPT;
}

/// Whether its outcome applies to everything in the element.
bool isAboutWhole(FindingCode code) {
  return outcomeOf(code) != Outcome::CHANGED;
}

/// The findings about one element and its attributes.
struct ElementFindings {
  std::vector<FindingCode> ofElement;
  std::map<std::string_view, std::vector<FindingCode>> ofAttributes;
};

class DescriptionLedger {
 public:
  /// @param ofAll what holds for all elements
  DescriptionLedger(const SceneLedger::Sink& list, Outcome ofAll) : _list(list), _inherited{ofAll} {}

  /// Findings or marks, which must outlive the ledger. To be called before elements are added.
  template <class List>
  void addFindings(const List& findings) {
    for (const auto& finding : findings) {
      _findings.push_back({finding.element, finding.code, finding.attribute});
    }
    std::ranges::stable_sort(_findings, {}, &Row::element);
  }

  void add(const PlacedElement& place) {
    const QxElement& element = *place.element;
    ElementFindings found = findingsOf(element);
    _inherited.resize(place.depth + 1);
    const Outcome inherited =
        _inherited[element.outlivesParent() && place.depth > 0 ? place.depth - 1 : place.depth];
    Outcome ofParts = inherited;
    for (const FindingCode code : found.ofElement) {
      ofParts = isAboutWhole(code) ? std::max(ofParts, outcomeOf(code)) : ofParts;
    }
    _inherited.push_back(ofParts);
    addReplacedSettings(element, found);
    LedgerRow row{{}, place.path, element.getName(), element.getLine(), {}, {}, {}, {}};
    const std::set<std::string_view> parts =
        found.ofAttributes.empty() ? std::set<std::string_view>() : partsOf(element);
    for (const auto& [attribute, codes] : found.ofAttributes) {
      if (!parts.contains(attribute)) {
        // It should be there.
        found.ofElement.insert(found.ofElement.end(), codes.begin(), codes.end());
      }
    }
    put(row, inherited, found.ofElement);
    for (const QxElement::Attribute& attribute : element.getAttributes()) {
      row.attribute = attribute.getName();
      row.value = attribute.getValue();
      // Of what is not used, nothing is changed.
      put(row, ofParts == Outcome::KEPT ? outcomeOf(attribute) : ofParts,
          found.ofAttributes[attribute.getName()]);
    }
    if (element.hasText()) {
      row.attribute = TEXT_NAME;
      row.value = element.peekText();
      put(row, ofParts, found.ofAttributes[TEXT_NAME]);
    }
  }

 private:
  /// What holds for all settings that geometries share holds for each that is stated and used.
  static void addReplacedSettings(const QxElement& element, ElementFindings& found) {
    const auto ofAll = found.ofAttributes.extract(GeometrySettings::ALL);
    if (ofAll.empty()) {
      return;
    }
    for (const QxElement::Attribute& attribute : element.getAttributes()) {
      if (!attribute.isUnused() && GeometrySettings::KEYS.isShared(attribute.getName())) {
        found.ofAttributes[attribute.getName()].push_back(ofAll.mapped().front());
      }
    }
  }

  /// What findings about attributes may name.
  static std::set<std::string_view> partsOf(const QxElement& element) {
    std::set<std::string_view> parts;
    for (const QxElement::Attribute& attribute : element.getAttributes()) {
      parts.insert(attribute.getName());
    }
    if (element.hasText()) {
      parts.insert(TEXT_NAME);
    }
    return parts;
  }

  ElementFindings findingsOf(const QxElement& element) const {
    ElementFindings found;
    const auto number = element.getPlace().number;
    for (auto row = std::ranges::lower_bound(_findings, number, {}, &Row::element);
         row != _findings.end() && row->element == number; ++row) {
      (row->attribute.empty() ? found.ofElement : found.ofAttributes[row->attribute]).push_back(row->code);
    }
    return found;
  }

  /// With the worst of what was found and what holds for all of the element.
  void put(LedgerRow& row, Outcome inherited, const std::vector<FindingCode>& findings) {
    row.findings = findings;
    row.outcome = inherited;
    for (const FindingCode code : findings) {
      row.outcome = std::max(row.outcome, outcomeOf(code));
    }
    _list(row);
  }

  struct Row {
    int element;
    FindingCode code;
    std::string_view attribute;
  };

  const SceneLedger::Sink& _list;
  /// Sorted by the number of the element.
  std::vector<Row> _findings;
  /// What holds for all children of the open elements, and first for all elements.
  std::vector<Outcome> _inherited;
};

/// The names of colormaps serve to choose them, and are not in the scene graph: a legend may choose one, and
/// an assembly has to if it has several.
class UnneededNames {
 public:
  void mark(const QxElement& element) {
    const std::size_t number = ++_count;
    if (element.getName() == Legend::XML_ENTITY) {
      if (const QxElement::Attribute* const chosen = element.peekAttribute("colormap")) {
        _latestLegends[chosen->getValue()] = number;
      }
    }
    for (const auto& child : element.getChildren()) {
      mark(*child);
    }
    const QxElement* const only = onlyColormap(element);
    if (only != nullptr && _latestLegends[SceneItem::statedName(*only)] < number) {
      only->markUnused("name");
    }
  }

 private:
  static const QxElement* onlyColormap(const QxElement& element) {
    const auto isColormap = [](const auto& child) { return child->getName() == Colormap::XML_ENTITY; };
    const auto& children = element.getChildren();
    const auto first = std::ranges::find_if(children, isColormap);
    const bool isOnly = first != children.end() && std::none_of(std::next(first), children.end(), isColormap);
    return isOnly ? first->get() : nullptr;
  }

  std::size_t _count = 0;
  /// The number of the last element that chooses a colormap by its name.
  std::map<std::string, std::size_t> _latestLegends;
};

}  // namespace

std::string_view outcomeName(Outcome outcome) {
  constexpr std::array<std::string_view, OUTCOME_COUNT> NAMES = {"kept", "unused",  "changed",
                                                                 "lost", "unknown", "refused"};
  return NAMES[static_cast<std::size_t>(outcome)];
}

SceneLedger::SceneLedger(const SceneFileReader& reader) : _reader(reader) {}

void SceneLedger::list(const Sink& sink) const {
  if (_reader.getDescription() != nullptr) {
    UnneededNames().mark(*_reader.getDescription());
    DescriptionLedger ledger(sink, _reader.hasPayload() ? Outcome::UNUSED : Outcome::KEPT);
    ledger.addFindings(_reader.getFindings());
    ledger.addFindings(_reader.getMarks());
    walkDescription(*_reader.getDescription(), [&ledger](const PlacedElement& place) {
      ledger.add(place);
      return true;
    });
  }
  listEntries(sink);
}

void SceneLedger::listEntries(const Sink& sink) const {
  std::map<std::string, std::vector<FindingCode>> codes;
  const auto collect = [&codes](const auto& findings) {
    for (const auto& finding : findings) {
      codes[finding.entry].push_back(finding.code);
    }
  };
  collect(_reader.getFindings());
  collect(_reader.getMarks());
  const std::vector<std::string> unread = _reader.getUnusedEntries();
  for (int i = 0; i < _reader.getArchive().getEntryCount(); ++i) {
    LedgerRow row;
    row.entry = _reader.getArchive().getEntryName(i);
    row.findings = codes[row.entry];
    // Without a finding, it is what the faults kept from being read.
    const bool isUnread = row.findings.empty() && std::ranges::binary_search(unread, row.entry);
    row.outcome = isUnread                        ? Outcome::REFUSED
                  : _reader.isReplaced(row.entry) ? Outcome::UNUSED
                                                  : Outcome::KEPT;
    for (const FindingCode code : row.findings) {
      row.outcome = std::max(row.outcome, outcomeOf(code));
    }
    sink(row);
  }
}

}  // namespace vemo
