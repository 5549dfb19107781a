#include "vemoview/import/reading/ValueReader.h"

#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/reading/ValueForms.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <limits>

namespace vemo {

namespace {

constexpr std::uint8_t OPAQUE = 255;

const std::string VECTOR_COMPONENTS[] = {"x", "y", "z"};
const std::string& DEPTH = VECTOR_COMPONENTS[2];

std::string inQuotes(const std::string& name) {
  return '"' + name + '"';
}

/// The number of the word that is exactly the text; -1 for none.
int findWord(const std::string* words, const std::string& text) {
  for (int i = 0; !words[i].empty(); ++i) {
    if (words[i] == text) {
      return i;
    }
  }
  return -1;
}

bool isUnknownNumber(const QxElement& element, const std::string& name) {
  const QxElement::Attribute* const attribute = element.peekAttribute(name);
  return attribute != nullptr && !NUMBER_FORM.matches(attribute->getValue());
}

}  // namespace

ValueReader::ValueReader(const QxElement& element, SceneFileReader* reader, OnBadValue onBadValue)
    : _element(element), _reader(reader), _onBadValue(onBadValue) {}

void ValueReader::warnIgnored(const KeyDescription& key, const std::string& reason) const {
  const std::string* const value = _element.findAttribute(key.name);
  report(FindingCode::VALUE_IGNORED,
         (value != nullptr ? "The value " + quotedUnlessLong(*value) + " of " + inQuotes(key.name)
                           : "The " + key.name) +
             " is ignored: " + reason,
         key.name);
}

void ValueReader::report(FindingCode code, const std::string& text, const std::string& name) const {
  if (_reader == nullptr) {
    return;
  }
  const QxElement* const child = _element.findAttribute(name) == nullptr ? _element.findChild(name) : nullptr;
  if (child == nullptr) {
    _reader->report(code, text, {}, name);
    return;
  }
  const ReadingContext::ItemScope scope(_reader, name, child->getPlace());
  _reader->report(code, text);
}

void ValueReader::warnOfCurrentException(const KeyDescription& key) const {
  const bool isOfChild = _element.findAttribute(key.name) == nullptr;
  try {
    throw;
  } catch (const NumberFormatException& exception) {
    warnIgnored(key,
                isOfChild ? quotedUnlessLong(exception.getMessage()) + " is not a number" : "not a number");
  } catch (const InternalError& error) {
    warnIgnored(key, error.getMessage());
  }
  if (const QxElement* const child = isOfChild ? _element.findChild(key.name) : nullptr) {
    markTreeRead(*child);
  }
}

void ValueReader::reportDepthWithoutEffect(const std::string& vector, double depth) const {
  const QxElement* const child = _element.findChild(vector);
  if (child == nullptr || depth == 0.0) {
    return;
  }
  const ReadingContext::ItemScope scope(_reader, vector, child->getPlace());
  ValueReader(*child, _reader, _onBadValue).reportWithoutEffect(DEPTH);
}

void ValueReader::reportWithoutEffect(const std::string& attribute) const {
  report(FindingCode::ATTRIBUTE_WITHOUT_EFFECT,
         "The " + inQuotes(attribute) + " of " + inQuotes(_element.getName()) + " has no effect", attribute);
}

bool ValueReader::isAbsentOr(const std::string& word, const std::string& attribute) const {
  const QxElement::Attribute* const stated = _element.peekAttribute(attribute);
  return stated == nullptr || stated->getValue() == word;
}

bool ValueReader::isUnknown(const std::string& name) const {
  const QxElement* const child = _element.findChild(name);
  return isUnknownNumber(_element, name) ||
         (child != nullptr && std::ranges::any_of(VECTOR_COMPONENTS, [&](const std::string& component) {
            return isUnknownNumber(*child, component);
          }));
}

std::array<bool, 2> ValueReader::findUnknownEnds(const std::string& vector) const {
  const QxElement* const child = _element.findChild(vector);
  if (child == nullptr) {
    return {};
  }
  return {isUnknownNumber(*child, VECTOR_COMPONENTS[0]), isUnknownNumber(*child, VECTOR_COMPONENTS[1])};
}

template <class T, class Get>
void ValueReader::readAttribute(const KeyDescription& key, const ValueForm& form, T& value, Get get) const {
  const std::string* const text = _element.findAttribute(key.name);
  const bool isOfForm = text != nullptr && form.matches(*text);
  const bool isIgnored = !isOfForm && (key.isIgnoredIfBad || _onBadValue == OnBadValue::WARN);
  if (text == nullptr || isIgnored) {
    if (text != nullptr) {
      warnIgnored(key, form.flaw);
    }
    value = key.whenAbsent == WhenAbsent::RESET ? T() : value;
    return;
  }
  if (isOfForm) {
    value = get();
  } else {
    const ReadingContext::AttributeScope scope(_reader, key.name);
    value = get();
    reportUnreadable(_reader, *text, inQuotes(key.name), form.flaw, valueText(value), key.name);
  }
}

template <class T, class Get>
void ValueReader::readInRange(const KeyDescription& key, const ValueForm& form, T& value, Get get) const {
  const T fallback = key.whenAbsent == WhenAbsent::RESET ? T() : value;
  readAttribute(key, form, value, get);
  if (value < key.least || value > key.greatest) {
    warnIgnored(key, fmt::format("out of range ({:g} to {:g})", key.least, key.greatest));
    value = fallback;
  }
}

void ValueReader::read(const KeyDescription& key, bool& value) const {
  readAttribute(key, BOOLEAN_FORM, value, [&] { return _element.getBool(key.name); });
}

void ValueReader::read(const KeyDescription& key, int& value) const {
  readInRange(key, INTEGER_FORM, value, [&] { return _element.getInt(key.name); });
}

void ValueReader::read(const KeyDescription& key, double& value) const {
  readInRange(key, NUMBER_FORM, value, [&] { return _element.getDouble(key.name); });
}

void ValueReader::read(const KeyDescription& key, float& value) const {
  constexpr double MAX_FLOAT = std::numeric_limits<float>::max();
  double number = value;
  read(key, number);
  value = static_cast<float>(std::clamp(number, -MAX_FLOAT, MAX_FLOAT));
}

void ValueReader::read(const KeyDescription& key, std::string& value) const {
  const std::string* const text = _element.findAttribute(key.name);
  if (text == nullptr) {
    if (key.whenAbsent == WhenAbsent::RESET) {
      value.clear();
    }
  } else if (key.isAllowed == nullptr || key.isAllowed(*text)) {
    value = *text;
  } else {
    warnIgnored(key, key.whyNotAllowed);
  }
}

void ValueReader::read(const KeyDescription& key, std::optional<std::string>& value) const {
  const std::string* const text = _element.findAttribute(key.name);
  value = text != nullptr ? std::optional(*text) : std::nullopt;
}

void ValueReader::read(const KeyDescription& key, Color& value) const {
  const std::string* const text = _element.findAttribute(key.name);
  if (key.whenAbsent == WhenAbsent::KEPT && text == nullptr) {
    return;
  }
  readOrWarn(key, [&] {
    const ReadingContext::AttributeScope scope(_reader, key.name);
    value = _element.getColor(key.name);
    if (!COLOR_FORM.matches(*text)) {
      reportUnreadable(_reader, *text, inQuotes(key.name), COLOR_FORM.flaw, valueText(value), key.name);
    }
    if (key.isAlphaUnused && value.a != OPAQUE && _reader != nullptr) {
      _element.markPartlyUnused(key.name);
      _reader->report(FindingCode::ATTRIBUTE_WITHOUT_EFFECT,
                      "The alpha of " + inQuotes(key.name) + " has no effect", {}, key.name);
    }
  });
}

const QxElement* ValueReader::findVector(const KeyDescription& key) const {
  const QxElement* const child = findOnlyChild(key);
  if (child == nullptr) {
    return nullptr;
  }
  for (const std::string& component : VECTOR_COMPONENTS) {
    const std::string* const text = child->findAttribute(component);
    if (text == nullptr || NUMBER_FORM.matches(*text)) {
      continue;
    }
    if (_onBadValue == OnBadValue::WARN) {
      warnIgnored(key, quotedUnlessLong(*text) + " is " + NUMBER_FORM.flaw);
      // One finding covers all of it.
      markTreeRead(*child);
      return nullptr;
    }
    const ReadingContext::ItemScope scope(_reader, key.name, child->getPlace());
    reportUnreadable(_reader, *text, inQuotes(component) + " in " + inQuotes(key.name), NUMBER_FORM.flaw,
                     valueText(child->getDouble(component)), component);
  }
  return child;
}

const QxElement* ValueReader::findOnlyChild(const KeyDescription& key) const {
  const QxElement* const first = _element.findChild(key.name);
  for (const auto& child : _element.getChildren()) {
    if (child->getName() == key.name && child.get() != first && _reader != nullptr) {
      markTreeRead(*child);
      const ReadingContext::ItemScope scope(_reader, key.name, child->getPlace());
      _reader->report(FindingCode::ELEMENT_REPLACED,
                      "Of several elements " + inQuotes(key.name) + " only the first is used");
    }
  }
  return first;
}

void ValueReader::read(const KeyDescription& key, Vector<3, double>& value) const {
  if (findVector(key) != nullptr) {
    _element.getVector3(key.name, value);
  } else if (key.whenAbsent == WhenAbsent::RESET) {
    value = {};
  }
}

void ValueReader::read(const KeyDescription& key, Vector<2, double>& value) const {
  Vector<3, double> vector{value[0], value[1], 0.0};
  read(key, vector);
  value = {vector[0], vector[1]};
  reportDepthWithoutEffect(key.name, vector[2]);
}

void ValueReader::read(const KeyDescription& key, std::unique_ptr<Vector<3, double>>& value) const {
  if (findVector(key) != nullptr) {
    value = std::make_unique<Vector<3, double>>();
    _element.getVector3(key.name, *value);
  }
}

int ValueReader::readWord(const KeyDescription& key, int current) const {
  const int fallback = key.whenAbsent == WhenAbsent::RESET ? 0 : current;
  const std::string* const text = _element.findAttribute(key.name);
  if (text == nullptr) {
    return fallback;
  }
  const int word = findWord(key.words, *text);
  if (word >= 0) {
    return word;
  }
  if (_onBadValue == OnBadValue::FAIL) {
    reportUnreadable(_reader, *text, inQuotes(key.name), "not an allowed value", wordText(key.words, 0),
                     key.name);
    return 0;
  }
  warnIgnored(key, "not an allowed value");
  return fallback;
}

}  // namespace vemo
