#include <vemo/import/QxElement.h>
#include <vemo/import/items/Light.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

namespace vemo {

Light::~Light() = default;

void Light::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  _intensity = element.getDouble(XML_ATTRIB_INTENSITY);
  _azimuth = element.getDouble(XML_ATTRIB_AZIMUTH);
  _elevation = element.getDouble(XML_ATTRIB_ELEVATION);
  _color = element.getColor(XML_ATTRIB_COLOR);
}

void Light::convertTo(lum::Light& light) const {
  light.setColor(_color.getRGB());
  light.setIntensity(_intensity);
  light.setAngles(_azimuth, _elevation);
}

}  // namespace vemo
