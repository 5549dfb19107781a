#pragma once

namespace vemo {

/// Lets the calling thread use our OpenGL contexts during its lifetime. At the
/// end it restores the thread's context, surfaces and client interface, both of
/// EGL and of an X window. A thread cannot have both, so that of an X window is
/// released meanwhile.
class CurrentContextKeeper {
 public:
  CurrentContextKeeper();
  ~CurrentContextKeeper();
  CurrentContextKeeper(const CurrentContextKeeper&) = delete;
  CurrentContextKeeper& operator=(const CurrentContextKeeper&) = delete;

 private:
  struct Binding {
    void* display = nullptr;
    void* context = nullptr;
  };

  unsigned _api;
  Binding _egl;
  void* _eglDrawSurface;
  void* _eglReadSurface;
  Binding _glx;
  unsigned long _glxDrawable = 0;
  unsigned long _glxReadDrawable = 0;
};

}  // namespace vemo
