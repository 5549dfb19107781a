#pragma once

#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>

#include <string>

namespace vemo {

/// A new drawable of this class at the end of the collection, named after its
/// class if the name is empty. Others of the name stay as they are.
template <class T>
T& addDrawable(const std::string& name, lum::DrawableCollection& collection) {
  const lum::Ptr<T> made(
      new T(lum::ClassNameAndSessionNodeInitializer(T::getClassName(), collection.getSessionId())));
  made->setName(name.empty() ? T::getClassName() : name);
  VEMO_REQUIRE(collection.addNode(*made), "The collection does not take the drawable");
  return *made;
}

}  // namespace vemo
