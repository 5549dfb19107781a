#include <vemo/import/QxElement.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/scenegraph/Logger.h>

#include <cstdint>
#include <utility>

namespace vemo {

namespace {

struct ModeName {
  const char* text;
  std::int32_t value;
};

/// The numbers are those of lum::BackgroundColorModes.
constexpr ModeName MODE_NAMES[] = {
    {"SOLID", 0},      {"TOP_BOTTOM", 1}, {"BOTTOM_TOP", 2}, {"LEFT_RIGHT", 3},
    {"RIGHT_LEFT", 4}, {"RADIAL", 5},     {"", -1},
};

lum::BackgroundColorModes modeOf(const std::string& text) {
  for (const ModeName* row = MODE_NAMES; row->value >= 0; ++row) {
    if (text == row->text) {
      return static_cast<lum::BackgroundColorModes>(row->value);
    }
  }
  return lum::BackgroundColorModes::SOLID;
}

}  // namespace

Gradient::Gradient(std::string name) : GraphicsItem(std::move(name)) {}
Gradient::~Gradient() = default;

void Gradient::read(const QxElement& element, SceneFileReader* reader) {
  checkVersion(element);
  GraphicsItem::read(element, reader);
  _topColor = element.getColor(XML_ATTRIB_TOP_COLOR);
  _bottomColor = element.getColor(XML_ATTRIB_BOTTOM_COLOR);
  const std::string* const mode = element.findAttribute(XML_ATTRIB_MODE);
  _mode = modeOf(mode != nullptr ? *mode : std::string());
}

void Gradient::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& /*collection*/,
                               int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_WARNING("***** Gradient::addToCollection not implemented *****");
}

}  // namespace vemo
