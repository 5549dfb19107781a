#include "vemoview/import/xml/QxString.h"
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vemo {

QxElement::QxElement(std::string name) : _name(std::move(name)) {}

QxElement::~QxElement() {
  // Each element gives up its children before it is destroyed.
  Children doomed = std::move(_children);
  while (!doomed.empty()) {
    const std::unique_ptr<QxElement> element = std::move(doomed.back());
    doomed.pop_back();
    std::ranges::move(element->_children, std::back_inserter(doomed));
    element->_children.clear();
  }
}

void QxElement::setText(std::string text) {
  _hasReplacedText = _hasText;
  _hasText = _hasText || text.find_first_not_of(" \t\r\n") != std::string::npos;
  _text = std::move(text);
}

void QxElement::markAllRead() const {
  _isRead = true;
  _isTextRead = true;
  for (const auto& [name, attribute] : _attributes) {
    attribute.isRead = true;
  }
}

void QxElement::markUnused(const std::string& attribute) const {
  const auto found = _attributes.find(attribute);
  if (found != _attributes.end()) {
    found->second.isUnused = true;
  }
}

QxElement& QxElement::addChild(std::unique_ptr<QxElement> child) {
  return *_children.emplace_back(std::move(child));
}

const QxElement* QxElement::findChild(const std::string& name) const {
  const auto found =
      std::ranges::find_if(_children, [&name](const auto& child) { return child->_name == name; });
  if (found == _children.end()) {
    return nullptr;
  }
  (*found)->markRead();
  return found->get();
}

const std::string* QxElement::findAttribute(const std::string& name) const {
  const auto found = _attributes.find(name);
  if (found == _attributes.end()) {
    return nullptr;
  }
  found->second.isRead = true;
  return &found->second.value;
}

std::unique_ptr<std::string> QxElement::getString(const std::string& name) const {
  const std::string* value = findAttribute(name);
  return value == nullptr ? nullptr : std::make_unique<std::string>(*value);
}

bool QxElement::getBool(const std::string& name) const {
  const std::string* value = findAttribute(name);
  return value != nullptr && *value == "true";
}

int QxElement::getInt(const std::string& name, int defaultValue) const {
  const std::string* value = findAttribute(name);
  return value == nullptr ? defaultValue : QxString::parseInt(*value, 10);
}

double QxElement::getDouble(const std::string& name) const {
  const std::string* value = findAttribute(name);
  return value == nullptr ? 0.0 : QxString::parseDouble(*value);
}

Color QxElement::getColor(const std::string& name) const {
  const std::string* value = findAttribute(name);
  return Color::parse(value == nullptr ? std::string() : *value);
}

bool QxElement::getVector3(const std::string& childName, Vector<3, double>& out) const {
  const QxElement* child = findChild(childName);
  if (child == nullptr) {
    return false;
  }
  out = {child->getDouble("x"), child->getDouble("y"), child->getDouble("z")};
  return true;
}

}  // namespace vemo
