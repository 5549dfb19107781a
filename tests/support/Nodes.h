#pragma once

#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/Ptr.h>

#include <string>

namespace vemo {

/// A new node of a class, in no session.
template <class T>
lum::Ptr<T> make(const std::string& name = {}) {
  lum::Ptr<T> node(new T(lum::ClassNameNodeInitializer(T::getClassName())));
  node->setName(name);
  return node;
}

}  // namespace vemo
