#include "vemoview/render/context/CurrentContextKeeper.h"

#include <EGL/egl.h>
#include <dlfcn.h>

namespace vemo {

namespace {

/// GLX by its own names and types, as far as the process has it loaded: where
/// it is not, no thread has a context of an X window.
struct Glx {
  template <class Function>
  static Function* find(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
  }

  void* (*getContext)() = find<void*()>("glXGetCurrentContext");
  void* (*getDisplay)() = find<void*()>("glXGetCurrentDisplay");
  unsigned long (*getDrawable)() = find<unsigned long()>("glXGetCurrentDrawable");
  unsigned long (*getReadDrawable)() = find<unsigned long()>("glXGetCurrentReadDrawable");
  int (*makeCurrent)(void*, unsigned long, unsigned long,
                     void*) = find<int(void*, unsigned long, unsigned long, void*)>("glXMakeContextCurrent");

  bool isLoaded() const {
    return getContext != nullptr && getDisplay != nullptr && getDrawable != nullptr &&
           getReadDrawable != nullptr && makeCurrent != nullptr;
  }
};

const Glx& glx() {
  static const Glx functions;
  return functions;
}

}  // namespace

CurrentContextKeeper::CurrentContextKeeper()
    : _api(eglQueryAPI()),
      _egl{eglGetCurrentDisplay(), eglGetCurrentContext()},
      _eglDrawSurface(eglGetCurrentSurface(EGL_DRAW)),
      _eglReadSurface(eglGetCurrentSurface(EGL_READ)) {
  if (_egl.context == EGL_NO_CONTEXT && glx().isLoaded() && glx().getContext() != nullptr) {
    _glx = {glx().getDisplay(), glx().getContext()};
    _glxDrawable = glx().getDrawable();
    _glxReadDrawable = glx().getReadDrawable();
    glx().makeCurrent(_glx.display, 0, 0, nullptr);
  }
}

CurrentContextKeeper::~CurrentContextKeeper() {
  const EGLDisplay now = eglGetCurrentDisplay();
  if (_egl.context == EGL_NO_CONTEXT && now != EGL_NO_DISPLAY) {
    eglMakeCurrent(now, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  }
  eglBindAPI(_api);
  if (_egl.context != EGL_NO_CONTEXT && eglGetCurrentContext() != _egl.context) {
    eglMakeCurrent(_egl.display, _eglDrawSurface, _eglReadSurface, _egl.context);
  }
  if (_glx.context != nullptr) {
    glx().makeCurrent(_glx.display, _glxDrawable, _glxReadDrawable, _glx.context);
  }
}

}  // namespace vemo
