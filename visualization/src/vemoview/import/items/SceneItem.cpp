#include <vemo/import/QxElement.h>
#include <vemo/import/SceneItem.h>

#include <utility>

namespace vemo {

SceneItem::SceneItem(std::string name) : _name(std::move(name)) {}
SceneItem::~SceneItem() = default;

void SceneItem::read(const QxElement& element, SceneFileReader* reader) {
  readImpl(element, reader);
}

void SceneItem::readImpl(const QxElement& element, SceneFileReader* /*reader*/) {
  const std::string* const name = element.findAttribute(XML_ATTRIB_NAME);
  _name = name != nullptr ? *name : std::string();
}

const std::string& SceneItem::pathName(const QxElement& element) {
  const std::string* const name = element.findAttribute(XML_ATTRIB_NAME);
  return name != nullptr && !name->empty() ? *name : element.getName();
}

}  // namespace vemo
