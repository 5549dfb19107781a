#include "vemoview/import/xml/OptionalValues.h"

#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/Font.h>

#include <cstddef>

namespace vemo {

namespace {

/// A stranger's text may be as long as the file.
constexpr std::size_t MAX_QUOTED = 60;

std::string quoted(const std::string& text) {
  return text.size() <= MAX_QUOTED ? '"' + text + '"' : "of " + std::to_string(text.size()) + " bytes";
}

}  // namespace

OptionalValues::OptionalValues(const QxElement& element, SceneFileReader* reader)
    : _element(element), _reader(reader) {}

void OptionalValues::warn(const std::string& name, const std::string& reason) const {
  if (_reader == nullptr) {
    return;
  }
  const std::string* const value = _element.findAttribute(name);
  _reader->addWarning("The value " + quoted(value != nullptr ? *value : std::string()) + " of \"" + name +
                      "\" is passed over: " + reason);
}

std::string OptionalValues::getString(const std::string& name, const std::string& otherwise) const {
  const std::string* const value = _element.findAttribute(name);
  return value != nullptr ? *value : otherwise;
}

int OptionalValues::getInt(const std::string& name, int otherwise, int least, int greatest) const {
  try {
    const int value = _element.getInt(name, otherwise);
    if (value >= least && value <= greatest) {
      return value;
    }
    warn(name, "it is not from " + std::to_string(least) + " to " + std::to_string(greatest));
  } catch (const NumberFormatException&) {
    warn(name, "it is not a number");
  }
  return otherwise;
}

double OptionalValues::getDouble(const std::string& name, double otherwise) const {
  return _element.findAttribute(name) != nullptr ? _element.getDouble(name) : otherwise;
}

int OptionalValues::getRow(const std::string& name, const std::string* table, int otherwise) const {
  const std::string* const value = _element.findAttribute(name);
  if (value == nullptr) {
    return otherwise;
  }
  for (int row = 0; !table[row].empty(); ++row) {
    if (table[row] == *value) {
      return row;
    }
  }
  warn(name, "it is none of its words");
  return otherwise;
}

Vector<3, double> OptionalValues::getVector3(const std::string& name,
                                             const Vector<3, double>& otherwise) const {
  Vector<3, double> vector = otherwise;
  _element.getVector3(name, vector);
  return vector;
}

void OptionalValues::getFont(Font& font) const {
  const QxElement* const element = _element.findChild(Font::XML_ENTITY);
  if (element == nullptr) {
    return;
  }
  const auto passOver = [this](const std::string& reason) {
    if (_reader != nullptr) {
      _reader->addWarning("The font is passed over: " + reason);
    }
  };
  try {
    Font stated;
    stated.read(*element, _reader);
    font = stated;
  } catch (const NumberFormatException& exception) {
    passOver(quoted(exception.getMessage()) + " is not a number");
  } catch (const InternalError& error) {
    passOver(error.getMessage());
  }
}

}  // namespace vemo
