#pragma once

#include <vemo/base/InternalError.h>
#include <vemo/import/SceneItem.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>

namespace vemo {

/// The drawable of this class with the item's name, created if necessary. An item
/// without a name always gets a new one, shared with no other item.
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
