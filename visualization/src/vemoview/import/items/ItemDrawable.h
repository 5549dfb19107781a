#pragma once

#include <vemo/base/InternalError.h>
#include <vemo/import/SceneItem.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace vemo {

/// The drawable of its class that bears the item's name, made when there is
/// none. An item without a name always gets a new one: it is no other's.
template <class T>
T& drawableOf(const SceneItem& item, lum::DrawableCollection& collection) {
  if (!item.getName().empty()) {
    return collection.findOrCreate<T>(item.getName());
  }
  const lum::Ptr<T> made(
      new T(lum::ClassNameAndSessionNodeInitializer(T::getClassName(), collection.getSessionId())));
  made->setName(T::getClassName());
  VEMO_REQUIRE(collection.addNode(*made), "The collection does not take the drawable");
  return *made;
}

}  // namespace vemo
