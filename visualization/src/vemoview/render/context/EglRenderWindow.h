#pragma once

#include <vemo/render/Export.h>

#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkSmartPointer.h>

#include <memory>

namespace vemo {

class CurrentContextKeeper;
class EglContext;

/// The OpenGL context of a render window. The window's base class releases
/// OpenGL objects until its very end, so this base outlives it.
class EglContextOwner {
 protected:
  EglContextOwner();
  ~EglContextOwner();

  /// What the calling thread gets back when the context is gone; null as long
  /// as the window lives.
  std::unique_ptr<CurrentContextKeeper> _keeper;
  std::unique_ptr<EglContext> _context;
};

/// A render window that draws off screen, into memory, with its own OpenGL
/// context, which needs no window system.
///
/// Without multisampling it has one frame buffer, which it draws into and which
/// is read. VTK has three, with seven colours and depths for each pixel: one to
/// draw into, one to resolve samples, one to present the finished frame from.
class VEMO_RENDER_EXPORT EglRenderWindow : private EglContextOwner, public vtkGenericOpenGLRenderWindow {
 public:
  static EglRenderWindow* New();
  EglRenderWindow(const EglRenderWindow&) = delete;
  EglRenderWindow& operator=(const EglRenderWindow&) = delete;

  /// A window of the given size in pixels with a working context. Throws
  /// RenderingUnavailable when there is none.
  static vtkSmartPointer<EglRenderWindow> open(int width, int height);

  /// The greatest width and height in pixels that can be drawn.
  int getLargestSize();

  /// Whether OpenGL is emulated on the processor.
  bool drawsInSoftware();

  // Start, Render and Initialize make the context if there is none yet, and
  // throw RenderingUnavailable when that fails.
  void Initialize() override;
  void Start() override;
  void Render() override;
  void Frame() override;
  void Finalize() override;
  void MakeCurrent() override;
  bool IsCurrent() override;
  void OpenGLInitContext() override;

 protected:
  EglRenderWindow();
  ~EglRenderWindow() override;

  int ReadPixels(const vtkRecti& part, int front, int format, int type, void* pixels, int right) override;

 private:
  bool drawsIntoOneBuffer() const { return MultiSamples == 0; }
  void prepareBuffer();
};

}  // namespace vemo
