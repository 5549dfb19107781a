#include "vemoview/common/VtkForms.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>

#include <vtkPlane.h>

namespace vemo {

ClippingPlane::ClippingPlane() = default;
ClippingPlane::~ClippingPlane() = default;

void ClippingPlane::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  element.getVector3(XML_ORIGIN, _origin);
  element.getVector3(XML_NORMAL, _normal);
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
