#pragma once

#include <vemo/scenegraph/CollectionOf.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// A plane through an origin. What lies on the side that the normal points to
/// is kept. The normal need not have unit length.
class VEMO_SCENEGRAPH_EXPORT Plane final : public Node {
  using Vector3 = Vector<3, double>;
  LUM_NODE(Plane, Node)
  LUM_VALUE(Vector3, Normal, _normal, {0.0, 0.0, 1.0})
  LUM_VALUE(Vector3, Origin, _origin, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("normal", _normal);
    fields.add("origin", _origin);
  }
};

class VEMO_SCENEGRAPH_EXPORT PlaneCollection final : public CollectionOf<Plane> {
  LUM_NODE(PlaneCollection, CollectionOf<Plane>)
};

/// The planes that cut what a canvas shows.
class VEMO_SCENEGRAPH_EXPORT ClipPlanesAttributes final : public Attributes {
  LUM_NODE(ClipPlanesAttributes, Attributes)

 public:
  PlaneCollection& getClippingPlanes() { return _clippingPlanes.ensure(*this); }
  /// Null when there are none.
  const PlaneCollection* hasClippingPlanes() const { return _clippingPlanes.get(); }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("clippingPlanes", _clippingPlanes);
  }

 private:
  Owned<PlaneCollection> _clippingPlanes;
};

}  // namespace lum
