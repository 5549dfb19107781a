#pragma once

#include <vemo/scenegraph/CollectionOf.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// A light from infinitely far away that moves with the camera.
class VEMO_SCENEGRAPH_EXPORT Light final : public Node {
  using Vector3 = Vector<3, double>;
  using Vector2 = Vector<2, double>;
  LUM_NODE(Light, Node)
  /// Red, green, blue in 0..1.
  LUM_VALUE(Vector3, Color, _color, {1.0, 1.0, 1.0})
  LUM_VALUE(double, Intensity, _intensity, 1.0)
  /// Azimuth (to the right of the viewer) and elevation (upwards), in degrees;
  /// (0, 0) shines from the viewer's place.
  LUM_VALUE(Vector2, Angles, _angles, {})

 public:
  void setAngles(double azimuth, double elevation) { setAngles({azimuth, elevation}); }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("color", _color);
    fields.add("intensity", _intensity);
    fields.add("angles", _angles);
  }
};

class VEMO_SCENEGRAPH_EXPORT LightCollection final : public CollectionOf<Light> {
  LUM_NODE(LightCollection, CollectionOf<Light>)
};

/// The lights of a canvas. What they leave in the dark is filled by a further,
/// weak light at the viewer's place: a quarter of the mean of their colours
/// times intensities. Without any light, one of intensity 1 shines from there.
class VEMO_SCENEGRAPH_EXPORT LightingAttributes final : public Attributes {
  LUM_NODE(LightingAttributes, Attributes)

 public:
  LightCollection& getLights() { return _lights.ensure(*this); }
  /// Null when there are none.
  const LightCollection* hasLights() const { return _lights.get(); }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("lights", _lights);
  }

 private:
  Owned<LightCollection> _lights;
};

}  // namespace lum
