#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/items/SceneItem.h>
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace vemo {

namespace {

/// The elements that are not called by a name that they state.
constexpr std::array<std::string_view, 7> NAMELESS = {"view",      "light",  "clip",   "font",
                                                      "transform", "repeat", "reflect"};

}  // namespace

const KeyTable<SceneItem> SceneItem::KEYS({
    key::always<&SceneItem::_name>(
        XML_ATTRIB_NAME,
        "the name of the item in the scene graph: see [items of one name](#items-of-one-name). Not in "
        "`view`, `light`, `clip`, `font` and the transforms"),
});

SceneItem::SceneItem(std::string name) : _name(std::move(name)) {}
SceneItem::~SceneItem() = default;

void SceneItem::read(const QxElement& element, SceneFileReader* reader) {
  readImpl(element, reader);
}

void SceneItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  _kind = element.getName();
  _place = element.getPlace();
  KEYS.read(*this, element, reader);
}

std::string SceneItem::statedName(const QxElement& element) {
  const QxElement::Attribute* const name = element.peekAttribute(XML_ATTRIB_NAME);
  return name != nullptr ? name->getValue() : std::string();
}

const std::string& SceneItem::pathName(const QxElement& element) {
  if (std::ranges::find(NAMELESS, element.getName()) != NAMELESS.end()) {
    return element.getName();
  }
  // Not by reading it: elements without a name of their own may have the attribute.
  const QxElement::Attribute* const name = element.peekAttribute(XML_ATTRIB_NAME);
  return name != nullptr && !name->getValue().empty() ? name->getValue() : element.getName();
}

}  // namespace vemo
