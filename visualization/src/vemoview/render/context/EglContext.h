#pragma once

namespace vemo {

/// An OpenGL context (core profile, 3.2 or later) that needs neither a window
/// system nor a screen, with a surface of one pixel: callers make frame buffers
/// of their own size.
///
/// All contexts of the process share one EGL display, which is never
/// terminated: ending it would end the contexts of all its other users.
class EglContext {
 public:
  /// Throws RenderingUnavailable where there is no such OpenGL.
  EglContext();
  ~EglContext();
  EglContext(const EglContext&) = delete;
  EglContext& operator=(const EglContext&) = delete;

  /// Makes the context that of the calling thread. Throws RenderingUnavailable
  /// when the thread is bound to a context of another kind, or another thread
  /// has this one.
  void makeCurrent() const;
  bool isCurrent() const;

  /// Leaves the calling thread without a context if it has this one.
  void release() const;

 private:
  void* _display;
  void* _context = nullptr;
  void* _surface = nullptr;
};

}  // namespace vemo
