#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>

namespace lum {

/// Gives a node class attributes, in a collection that is created on first
/// access. The class lists the field.
class AttributesOwner {
 public:
  AttributesCollection& getAttributesCollection() { return _attributes.ensure(self()); }

  /// The attributes of class T, created when there are none.
  template <class T>
  T& getAttributes() {
    return getAttributesCollection().template findOrCreate<T>();
  }

  /// The attributes of class T; null when there are none.
  template <class T>
  T* findAttributes() const {
    return _attributes.get() != nullptr ? _attributes.get()->template find<T>() : nullptr;
  }

 protected:
  ~AttributesOwner() = default;

  /// The node that owns the attributes.
  virtual Node& self() = 0;

  Owned<AttributesCollection> _attributes;
};

}  // namespace lum
