#include "vemoview/import/scene/Ledger.h"

#include "vemoview/import/reading/DescriptionWalk.h"
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <array>
#include <map>
#include <tuple>
#include <utility>

namespace vemo {

namespace {

Outcome outcomeOf(FindingCode code) {
  switch (code) {
    case FindingCode::ELEMENT_UNKNOWN:
    case FindingCode::ATTRIBUTE_UNKNOWN:
      return Outcome::UNKNOWN;
    case FindingCode::ATTRIBUTE_WITHOUT_EFFECT:
    case FindingCode::DESCRIPTION_REPLACED:
      return Outcome::LOST;
    default:
      break;
  }
  switch (Finding{code}.getSeverity()) {
    case Severity::NOTE:
      return Outcome::KEPT;
    case Severity::CHANGED:
      return Outcome::CHANGED;
    case Severity::LOST:
    case Severity::REFUSED:
      break;
  }
  return Outcome::LOST;
}

class DescriptionLedger {
 public:
  DescriptionLedger(std::span<const Finding> findings, const std::function<void(const LedgerRow&)>& list)
      : _list(list) {
    for (const Finding& finding : findings) {
      _codes[{finding.itemPath, finding.line, finding.attribute}].push_back(finding.code);
      if (finding.code == FindingCode::DESCRIPTION_REPLACED) {
        _inherited.assign(1, Outcome::LOST);
      }
    }
  }

  void add(const PlacedElement& place) {
    const QxElement& element = *place.element;
    LedgerRow row{{}, place.path, element.getName(), element.getLine(), {}, {}, {}, {}};
    _inherited.resize(place.depth + 1);
    const Outcome outcome = put(row, _inherited.back());
    const bool isWholeLost = outcome == Outcome::LOST || outcome == Outcome::UNKNOWN;
    const Outcome ofParts = isWholeLost ? outcome : Outcome::KEPT;
    _inherited.push_back(ofParts);
    for (const auto& [name, attribute] : element.getAttributes()) {
      row.attribute = name;
      row.value = attribute.value;
      put(row, ofParts);
    }
    if (element.hasText()) {
      row.attribute = TEXT_NAME;
      row.value = element.peekText();
      put(row, ofParts);
    }
  }

 private:
  /// Returns the worse of what was found and what holds for all of the element.
  Outcome put(LedgerRow& row, Outcome inherited) {
    const auto found = _codes.find({row.path, row.line, row.attribute});
    row.findings = found != _codes.end() ? found->second : std::vector<FindingCode>();
    row.outcome = inherited;
    for (const FindingCode code : row.findings) {
      row.outcome = std::max(row.outcome, outcomeOf(code));
    }
    _list(row);
    return row.outcome;
  }

  const std::function<void(const LedgerRow&)>& _list;
  std::map<std::tuple<std::string, int, std::string>, std::vector<FindingCode>> _codes;
  /// What holds for all children of the open elements, and first for all elements.
  std::vector<Outcome> _inherited{Outcome::KEPT};
};

}  // namespace

std::string_view outcomeName(Outcome outcome) {
  constexpr std::array<std::string_view, 4> NAMES = {"kept", "changed", "lost", "unknown"};
  return NAMES[static_cast<std::size_t>(outcome)];
}

void listOutcomesOf(const ZipFileReader& archive, std::span<const Finding> findings,
                    const std::function<void(const LedgerRow&)>& list) {
  std::map<std::string, std::vector<FindingCode>> codes;
  for (const Finding& finding : findings) {
    codes[finding.entry].push_back(finding.code);
  }
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    LedgerRow row;
    row.entry = archive.getEntryName(i);
    row.findings = codes[row.entry];
    for (const FindingCode code : row.findings) {
      row.outcome = std::max(row.outcome, outcomeOf(code));
    }
    list(row);
  }
}

void listOutcomesOf(const QxElement& description, std::span<const Finding> findings,
                    const std::function<void(const LedgerRow&)>& list) {
  DescriptionLedger ledger(findings, list);
  walkDescription(description, [&ledger](const PlacedElement& place) {
    ledger.add(place);
    return true;
  });
}

}  // namespace vemo
