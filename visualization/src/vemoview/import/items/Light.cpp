#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/items/Light.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>

namespace vemo {

namespace {

constexpr const char* INTENSITY = "intensity";

}  // namespace

const KeyTable<Light> Light::KEYS({
    key::always<&Light::_intensity>(INTENSITY, "its strength; below 0 it takes light away"),
    key::always<&Light::_azimuth>("azimuth", "to the right of the viewer, in degrees"),
    key::always<&Light::_elevation>("elevation", "above the viewer, in degrees"),
    key::always<&Light::_color>("color", "its colour; alpha is not used").withoutAlpha(),
});

Light::~Light() = default;

void Light::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {INTENSITY});
  KEYS.readElement(*this, element, reader);
  if (_intensity == 0.0) {
    held.reportHidden({INTENSITY}, "the light has no effect");
  }
  held.release();
  if (reader == nullptr) {
    return;
  }
  if (element.findAttribute(INTENSITY) == nullptr) {
    reader->report(FindingCode::HIDDEN_BY_DEFAULT, "The light has no effect: its intensity is missing");
  }
}

void Light::convertTo(lum::Light& light) const {
  light.setColor(_color.getRGB());
  light.setIntensity(_intensity);
  light.setAngles(_azimuth, _elevation);
}

}  // namespace vemo
