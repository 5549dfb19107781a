#include "vemoview/import/reading/ValueReader.h"

#include "vemoview/import/reading/ElementVersion.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>

#include <cstddef>

namespace vemo {

namespace {

/// Texts in untrusted files may be as long as the file.
constexpr std::size_t MAX_QUOTED_LENGTH = 60;

std::string quotedUnlessLong(const std::string& text) {
  return text.size() <= MAX_QUOTED_LENGTH ? '"' + text + '"' : "of " + std::to_string(text.size()) + " bytes";
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

}  // namespace

ValueReader::ValueReader(const QxElement& element, SceneFileReader* reader, OnBadValue onBadValue)
    : _element(element), _reader(reader), _onBadValue(onBadValue) {}

void ValueReader::warnIgnored(const KeyDescription& key, const std::string& reason) const {
  if (_reader == nullptr) {
    return;
  }
  const std::string* const value = _element.findAttribute(key.name);
  _reader->report(FindingCode::VALUE_IGNORED,
                  (value != nullptr ? "The value " + quotedUnlessLong(*value) + " of \"" + key.name + '"'
                                    : "The " + key.name) +
                      " is ignored: " + reason,
                  {}, key.name);
}

void ValueReader::warnOfCurrentException(const KeyDescription& key) const {
  try {
    throw;
  } catch (const NumberFormatException& exception) {
    const bool isOfChild = _element.findAttribute(key.name) == nullptr;
    warnIgnored(key,
                isOfChild ? quotedUnlessLong(exception.getMessage()) + " is not a number" : "not a number");
  } catch (const InternalError& error) {
    warnIgnored(key, error.getMessage());
  }
}

void ValueReader::checkVersion(int newest) const {
  ElementVersion stated;
  ElementVersion::KEYS.read(stated, *this);
  if (stated.version > newest) {
    throw FutureVersionException();
  }
}

void ValueReader::reportWithoutEffect(const KeyDescription& key, const std::string& defaultText) const {
  const std::string* const text = _element.findAttribute(key.name);
  const bool isStated = text != nullptr ? *text != defaultText : _element.findChild(key.name) != nullptr;
  if (isStated) {
    reportWithoutEffect(key.name);
  }
}

void ValueReader::reportWithoutEffect(const std::string& attribute) const {
  if (_reader != nullptr) {
    _reader->report(FindingCode::ATTRIBUTE_WITHOUT_EFFECT,
                    "The \"" + attribute + "\" of \"" + _element.getName() + "\" has no effect", {},
                    attribute);
  }
}

void ValueReader::reportInapplicable(const KeyDescription& key) const {
  const std::string* const text = _element.findAttribute(key.name);
  if (_reader != nullptr && text != nullptr && *text != "false") {
    _reader->report(FindingCode::ATTRIBUTE_INAPPLICABLE,
                    '"' + key.name + "\" does not apply to this type of \"" + _element.getName() + '"', {},
                    key.name);
  }
}

void ValueReader::read(const KeyDescription& key, bool& value) const {
  if (key.whenAbsent == WhenAbsent::RESET || _element.findAttribute(key.name) != nullptr) {
    value = _element.getBool(key.name);
  }
}

void ValueReader::read(const KeyDescription& key, int& value) const {
  const int otherwise = key.whenAbsent == WhenAbsent::RESET ? 0 : value;
  int stated = otherwise;
  readOrWarn(key, [&] { stated = _element.getInt(key.name, otherwise); });
  if (stated < key.least || stated > key.greatest) {
    warnIgnored(key,
                "out of range (" + std::to_string(key.least) + " to " + std::to_string(key.greatest) + ")");
    stated = otherwise;
  }
  value = stated;
}

void ValueReader::read(const KeyDescription& key, double& value) const {
  if (key.whenAbsent == WhenAbsent::RESET || _element.findAttribute(key.name) != nullptr) {
    value = _element.getDouble(key.name);
  }
}

void ValueReader::read(const KeyDescription& key, float& value) const {
  double number = value;
  read(key, number);
  value = static_cast<float>(number);
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
  if (key.whenAbsent == WhenAbsent::RESET || _element.findAttribute(key.name) != nullptr) {
    readOrWarn(key, [&] { value = _element.getColor(key.name); });
  }
}

void ValueReader::read(const KeyDescription& key, Vector<3, double>& value) const {
  if (!_element.getVector3(key.name, value) && key.whenAbsent == WhenAbsent::RESET) {
    value = {};
  }
}

void ValueReader::read(const KeyDescription& key, Vector<2, double>& value) const {
  Vector<3, double> vector{value[0], value[1], 0.0};
  read(key, vector);
  value = {vector[0], vector[1]};
  if (vector[2] != 0.0) {
    reportWithoutEffect(key.name);
  }
}

void ValueReader::read(const KeyDescription& key, std::unique_ptr<Vector<3, double>>& value) const {
  Vector<3, double> vector;
  if (_element.getVector3(key.name, vector)) {
    value = std::make_unique<Vector<3, double>>(vector);
  }
}

int ValueReader::readWord(const KeyDescription& key, int current) const {
  const int otherwise = key.whenAbsent == WhenAbsent::RESET ? 0 : current;
  const std::string* const text = _element.findAttribute(key.name);
  if (text == nullptr) {
    return otherwise;
  }
  const int word = findWord(key.words, *text);
  if (word >= 0) {
    return word;
  }
  if (_onBadValue == OnBadValue::FAIL) {
    return 0;
  }
  warnIgnored(key, "not an allowed value");
  return otherwise;
}

}  // namespace vemo
