#include "base/MemoryReserve.h"
#include "vemoview/import/xml/ElementTexts.h"
#include "vemoview/import/xml/QxString.h"
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vemo {

QxElement::QxElement(const std::string& name) : QxElement(name, std::make_shared<ElementTexts>()) {}

QxElement::QxElement(std::string_view name, std::shared_ptr<ElementTexts> texts)
    : _texts(std::move(texts)), _name(&_texts->getName(name).text) {}

QxElement::~QxElement() {
  // Each element gives up its children before it is destroyed, unless there is no memory
  // for it: then destructors call each other.
  Children doomed = std::move(_children);
  OS::stopWithoutMemory([&doomed] {
    while (!doomed.empty()) {
      const std::unique_ptr<QxElement> element = std::move(doomed.back());
      doomed.pop_back();
      std::ranges::move(element->_children, std::back_inserter(doomed));
      element->_children.clear();
    }
  });
}

void QxElement::setText(std::string text) {
  _hasReplacedText = _hasText;
  _hasText = _hasText || text.find_first_not_of(" \t\r\n") != std::string::npos;
  _text = std::move(text);
}

void QxElement::markAllRead() const {
  _isRead = true;
  _isTextRead = true;
  for (const Attribute& attribute : _attributes) {
    attribute._isRead = true;
  }
}

bool QxElement::isWhollyRead() const {
  return _isRead && (!_hasText || _isTextRead) && std::ranges::all_of(_attributes, &Attribute::isRead) &&
         std::ranges::all_of(_children, [](const auto& child) { return child->isWhollyRead(); });
}

void QxElement::dropContent() {
  Attributes().swap(_attributes);
  Children().swap(_children);
  std::string().swap(_text);
  _hasText = false;
}

void QxElement::markUnused(const std::string& attribute) const {
  if (const Attribute* const found = peekAttribute(attribute)) {
    found->markUnused();
  }
}

void QxElement::markPartlyUnused(const std::string& attribute) const {
  if (const Attribute* const found = peekAttribute(attribute)) {
    found->_isPartlyUnused = true;
  }
}

void QxElement::setAttribute(const std::string& name, const std::string& value) {
  std::erase_if(_attributes, [&name](const Attribute& attribute) { return attribute.getName() == name; });
  addAttribute(name, value);
}

void QxElement::setAttributes(const char* const* namesAndValues) {
  std::size_t size = 0;
  while (namesAndValues[size] != nullptr) {
    size += 2;
  }
  _attributes.clear();
  _attributes.reserve(size / 2);
  for (std::size_t i = 0; i < size; i += 2) {
    addAttribute(namesAndValues[i], namesAndValues[i + 1]);
  }
}

void QxElement::addAttribute(std::string_view name, std::string_view value) {
  ElementTexts::Name& shared = _texts->getName(name);
  _attributes.emplace_back(shared.text, _texts->getValue(shared, value));
}

QxElement& QxElement::addChild(std::unique_ptr<QxElement> child) {
  return *_children.emplace_back(std::move(child));
}

const QxElement* QxElement::findChild(const std::string& name) const {
  const auto found =
      std::ranges::find_if(_children, [&name](const auto& child) { return *child->_name == name; });
  if (found == _children.end()) {
    return nullptr;
  }
  (*found)->markRead();
  return found->get();
}

const QxElement::Attribute* QxElement::peekAttribute(const std::string& name) const {
  const auto found = std::ranges::find(_attributes, name, &Attribute::getName);
  return found != _attributes.end() ? &*found : nullptr;
}

const std::string* QxElement::findAttribute(const std::string& name) const {
  const Attribute* const found = peekAttribute(name);
  if (found == nullptr) {
    return nullptr;
  }
  found->_isRead = true;
  return found->_value;
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
