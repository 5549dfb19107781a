#include "vemoview/common/VtkForms.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>

#include <vtkPlane.h>

namespace vemo {

const KeyTable<ClippingPlane> ClippingPlane::KEYS({
    key::ifPresent<&ClippingPlane::_origin>("origin", "a point of the plane"),
    key::ifPresent<&ClippingPlane::_normal>("normal", "its direction, of any length"),
});

ClippingPlane::ClippingPlane() = default;
ClippingPlane::~ClippingPlane() = default;

void ClippingPlane::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement(*this, element, reader);
  if (_normal == Vector<3, double>{} && reader != nullptr &&
      !ValueReader(element, reader, OnBadValue::FAIL).isUnknown("normal")) {
    reader->report(FindingCode::VALUE_IGNORED, "The clipping plane has no normal: it has no effect");
  }
}

void ClippingPlane::convertTo(lum::Plane& plane) const {
  plane.setNormal(_normal);
  plane.setOrigin(_origin);
}

vtkPlane* ClippingPlane::getPlane() {
  if (!_plane) {
    _plane = vtkSmartPointer<vtkPlane>::New();
  }
  setVtkPlane(*_plane, _origin, _normal);
  return _plane;
}

}  // namespace vemo
