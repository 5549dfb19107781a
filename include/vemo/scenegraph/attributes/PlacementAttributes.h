#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// Where a drawable without points of its own stands, in model coordinates.
class VEMO_SCENEGRAPH_EXPORT PositionAttributes final : public Attributes {
  LUM_NODE(PositionAttributes, Attributes)

 public:
  const Vector<3, double>& getPosition() const { return _position; }
  /// If `recursive`, what the drawable owns gets the same position.
  void setPosition(const Vector<3, double>& position, bool recursive) {
    changeAll<PositionAttributes>(recursive,
                                  [&](PositionAttributes& each) { each.assign(each._position, position); });
  }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("position", _position);
  }

 private:
  Vector<3, double> _position;
};

/// Which way such a drawable faces: its z and its y axis in model coordinates.
class VEMO_SCENEGRAPH_EXPORT OrientationAttributes final : public Attributes {
  using Direction = Vector<3, double>;
  LUM_NODE(OrientationAttributes, Attributes)
  LUM_VALUE(Direction, ForwardVector, _forwardVector, {0.0, 0.0, 1.0})
  LUM_VALUE(Direction, UpVector, _upVector, {0.0, 1.0, 0.0})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("forwardVector", _forwardVector);
    fields.add("upVector", _upVector);
  }
};

}  // namespace lum
