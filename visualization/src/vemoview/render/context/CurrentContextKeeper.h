#pragma once

namespace vemo {

/// While it lives, the calling thread may use OpenGL contexts of ours: at the
/// end it has the context, surfaces and client interface again that it had
/// before, those of EGL and those of an X window alike. A thread cannot have
/// both, so that of an X window is taken from it meanwhile.
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
