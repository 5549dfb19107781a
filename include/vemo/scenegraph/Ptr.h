#pragma once

#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/Object.h>

#include <utility>

namespace lum {

/// The owning pointer to an Object, whatever its type. The new object is referenced
/// before the old one is released, so that p = p->child is safe.
class PtrBase {
 public:
  PtrBase() = default;
  PtrBase(Object* object) noexcept : _object(object) { retain(); }
  PtrBase(const PtrBase& other) noexcept : _object(other._object) { retain(); }
  PtrBase(PtrBase&& other) noexcept : _object(std::exchange(other._object, nullptr)) {}
  ~PtrBase() { release(); }

  PtrBase& operator=(const PtrBase& other) noexcept {
    PtrBase(other).swap(*this);
    return *this;
  }
  PtrBase& operator=(PtrBase&& other) noexcept {
    PtrBase(std::move(other)).swap(*this);
    return *this;
  }
  PtrBase& operator=(Object* object) noexcept {
    PtrBase(object).swap(*this);
    return *this;
  }

  void swap(PtrBase& other) noexcept { std::swap(_object, other._object); }

  /// The object held, of any type; null when empty.
  Object* getObject() const noexcept { return _object; }

 private:
  void retain() const noexcept {
    if (_object != nullptr) {
      _object->addReference();
    }
  }
  void release() const noexcept {
    if (_object != nullptr) {
      _object->release();
    }
  }

  Object* _object = nullptr;
};

/// A PtrBase for access to a T. It may hold any Object; every access checks its
/// type.
template <class T>
class Ptr : public PtrBase {
 public:
  using PtrBase::PtrBase;
  Ptr() = default;
  explicit Ptr(const PtrBase& other) noexcept : PtrBase(other) {}
  Ptr& operator=(Object* object) noexcept {
    PtrBase::operator=(object);
    return *this;
  }
  Ptr& operator=(const PtrBase& other) noexcept {
    PtrBase::operator=(other);
    return *this;
  }

  /// The object held; null when there is none, or one of another type.
  T* get() const noexcept { return dynamic_cast<T*>(getObject()); }
  explicit operator bool() const noexcept { return get() != nullptr; }

  /// The object held; throws InternalError when there is none, or one of
  /// another type.
  T& operator*() const {
    T* const res = get();
    if (res == nullptr) {
      throw vemo::InternalError("Uninitialized object or unexpected object type", "res", __FILE__, __LINE__);
    }
    return *res;
  }
  T* operator->() const { return &**this; }
};

/// Refers to an Object without keeping it alive.
template <class T>
class WeakPtr {
 public:
  WeakPtr() = default;
  WeakPtr(T* object) : _cell(object != nullptr ? object->getWeakCell() : nullptr) {}

  /// The object referred to; null when there is none, or it is gone.
  T* get() const noexcept { return _cell ? dynamic_cast<T*>(*_cell) : nullptr; }
  explicit operator bool() const noexcept { return get() != nullptr; }

 private:
  std::shared_ptr<Object*> _cell;
};

}  // namespace lum
