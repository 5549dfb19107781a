#pragma once

#include <vemo/import/ElementPlace.h>
#include <vemo/import/reading/Readable.h>
#include <vemo/scenegraph/attributes/BaseAttributes.h>

namespace vemo {

/// How everything below an assembly is moved, mirrored or repeated.
class VEMO_IMPORT_EXPORT Transform : public Readable {
 public:
  ~Transform() override;

  /// Unknown for a transform made in code.
  const ElementPlace& getPlace() const { return _place; }
  void setPlace(const ElementPlace& place) { _place = place; }

  /// How often the assembly is repeated; the mirror image counts as one.
  virtual int getRepeatCount() const = 0;
  virtual bool isMirroring() const = 0;

  /// Writes the values into a scene graph transform that `makeLumTransform`
  /// gave; throws InternalError for one of another kind.
  virtual void apply(lum::Transform& target) const = 0;

  /// The transform of the attributes, which own it: the one that they have if
  /// it is of the right kind, else a new one.
  virtual lum::Transform* makeLumTransform(lum::BaseAttributes& attributes) const = 0;

 protected:
  template <class T>
  static T* ensureTransform(lum::BaseAttributes& attributes) {
    if (auto* const held = dynamic_cast<T*>(attributes.getTransform())) {
      return held;
    }
    const lum::Ptr<T> made(
        new T(lum::ClassNameAndSessionNodeInitializer(T::getClassName(), attributes.getSessionId())));
    attributes.setTransform(&*made);
    return made.get();
  }

 private:
  ElementPlace _place;
};

}  // namespace vemo
