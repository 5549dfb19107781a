#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/CameraAttributes.h>
#include <vemo/scenegraph/attributes/OrientationAttributes.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/attributes/TriadAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

/// Three labelled axes. All attributes are created on first access.
class VEMO_SCENEGRAPH_EXPORT TriadDrawable final : public Drawable {
  LUM_NODE(TriadDrawable, Drawable)
  LUM_FIELD(Reference<CameraAttributes>, _cameraAttributes)

 public:
  TriadAttributes& getTriadAttributes() { return getAttributes<TriadAttributes>(); }
  TextAttributes& getTextAttributes() { return getAttributes<TextAttributes>(); }
  PositionAttributes& getPositionAttributes() { return getAttributes<PositionAttributes>(); }
  OrientationAttributes& getOrientationAttributes() { return getAttributes<OrientationAttributes>(); }

  /// The camera that the triad turns with, which another canvas owns; null
  /// when there is none.
  CameraAttributes* getCameraAttributes() const { return _cameraAttributes.get(); }
  void setCameraAttributes(CameraAttributes* camera) {
    _cameraAttributes.put(camera);
    modified();
  }
};

}  // namespace lum
