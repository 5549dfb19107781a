#include "vemoview/render/context/EglRenderWindow.h"

#include "vemoview/render/context/CurrentContextKeeper.h"
#include "vemoview/render/context/EglContext.h"
#include <vemo/render/RenderErrors.h>

#include <vtkObjectFactory.h>
#include <vtkOpenGLFramebufferObject.h>
#include <vtkOpenGLState.h>
#include <vtkRect.h>
#include <vtk_glew.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace vemo {

vtkStandardNewMacro(EglRenderWindow);

namespace {

/// GLEW built for X loads every entry point first and then misses a screen,
/// which it reports by this number; older headers have no name for it.
constexpr GLenum GLEW_FOUND_NO_SCREEN = 4;

/// What the names of OpenGL drivers that use the processor contain.
constexpr std::array<std::string_view, 3> SOFTWARE_RENDERERS = {"llvmpipe", "softpipe",
                                                                "Software Rasterizer"};

}  // namespace

EglContextOwner::EglContextOwner() = default;
EglContextOwner::~EglContextOwner() = default;

EglRenderWindow::EglRenderWindow() {
  ReadyForRendering = true;
  SupportsOpenGLStatus = 1;
  OwnContext = 1;
  SetShowWindow(false);
  SetUseOffScreenBuffers(true);
  // There is no window to present the finished frame in.
  SetFrameBlitModeToNoBlit();
}

EglRenderWindow::~EglRenderWindow() {
  if (_context) {
    _context->release();
  }
  _keeper = std::make_unique<CurrentContextKeeper>();
  EglRenderWindow::Finalize();
}

vtkSmartPointer<EglRenderWindow> EglRenderWindow::open(int width, int height) {
  auto window = vtkSmartPointer<EglRenderWindow>::New();
  window->SetSize(width, height);
  window->Initialize();
  return window;
}

int EglRenderWindow::getLargestSize() {
  GLint buffer = 0;
  GLint texture = 0;
  MakeCurrent();
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &buffer);
  glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
  return std::min(buffer, texture);
}

bool EglRenderWindow::drawsInSoftware() {
  MakeCurrent();
  const auto* const found = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
  const std::string_view renderer = found == nullptr ? "" : found;
  return std::ranges::any_of(SOFTWARE_RENDERERS, [renderer](std::string_view name) {
    return renderer.find(name) != std::string_view::npos;
  });
}

void EglRenderWindow::Initialize() {
  if (_context) {
    return;
  }
  _context = std::make_unique<EglContext>();
  Mapped = 1;
  try {
    _context->makeCurrent();
    OpenGLInit();
    if (!GlewInitValid) {
      throw RenderingUnavailable("OpenGL is not usable: its functions could not be loaded");
    }
    // As in VTK's other windows: what is drawn later covers what has the same depth.
    GetState()->vtkglDepthFunc(GL_LEQUAL);
    glDepthFunc(GL_LEQUAL);
  } catch (...) {
    _context.reset();
    throw;
  }
}

void EglRenderWindow::OpenGLInitContext() {
  ContextCreationTime.Modified();
  if (Initialized) {
    return;
  }
  const GLenum result = glewInit();
  GlewInitValid = (result == GLEW_OK || result == GLEW_FOUND_NO_SCREEN) && glGenVertexArrays != nullptr;
  if (!GlewInitValid) {
    return;
  }
  Initialized = true;
  GLfloat widths[2] = {1, 1};
  glGetFloatv(GL_SMOOTH_LINE_WIDTH_RANGE, widths);
  MaximumHardwareLineWidth = widths[1];
}

void EglRenderWindow::Start() {
  Initialize();
  _context->makeCurrent();
  if (!drawsIntoOneBuffer()) {
    vtkGenericOpenGLRenderWindow::Start();
    return;
  }
  vtkOpenGLState& state = *GetState();
  state.vtkglEnable(GL_BLEND);
  state.vtkglBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  prepareBuffer();
  state.PushFramebufferBindings();
  RenderFramebuffer->Bind();
  RenderFramebuffer->ActivateDrawBuffer(0);
}

void EglRenderWindow::prepareBuffer() {
  constexpr int DEPTH_BITS = 32;
  vtkOpenGLFramebufferObject& buffer = *RenderFramebuffer;
  if (LastMultiSamples != 0) {
    buffer.ReleaseGraphicsResources(this);
    LastMultiSamples = 0;
  }
  if (buffer.GetFBOIndex() != 0) {
    buffer.Resize(Size[0], Size[1]);
    return;
  }
  vtkOpenGLState& state = *GetState();
  state.PushFramebufferBindings();
  buffer.PopulateFramebuffer(Size[0], Size[1], true, 1, VTK_UNSIGNED_CHAR, true, DEPTH_BITS, 0);
  state.PopFramebufferBindings();
}

void EglRenderWindow::Render() {
  Initialize();
  _context->makeCurrent();
  vtkGenericOpenGLRenderWindow::Render();
}

void EglRenderWindow::Frame() {
  if (!drawsIntoOneBuffer()) {
    vtkGenericOpenGLRenderWindow::Frame();
  }
}

int EglRenderWindow::ReadPixels(const vtkRecti& part, int front, int format, int type, void* pixels,
                                int right) {
  if (!drawsIntoOneBuffer()) {
    return vtkGenericOpenGLRenderWindow::ReadPixels(part, front, format, type, pixels, right);
  }
  MakeCurrent();
  vtkOpenGLState& state = *GetState();
  state.PushReadFramebufferBinding();
  RenderFramebuffer->Bind(vtkOpenGLFramebufferObject::GetReadMode());
  RenderFramebuffer->ActivateReadBuffer(0);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(part.GetLeft(), part.GetBottom(), part.GetWidth(), part.GetHeight(),
               static_cast<GLenum>(format), static_cast<GLenum>(type), pixels);
  const bool isRead = glGetError() == GL_NO_ERROR;
  state.PopReadFramebufferBinding();
  return isRead ? VTK_OK : VTK_ERROR;
}

void EglRenderWindow::Finalize() {
  if (_context) {
    EglRenderWindow::MakeCurrent();
    vtkGenericOpenGLRenderWindow::Finalize();
  }
}

void EglRenderWindow::MakeCurrent() {
  // VTK also calls this in destructors, where nothing may be thrown. Start and
  // Render have checked before that it works.
  if (_context && !_context->isCurrent()) {
    try {
      _context->makeCurrent();
    } catch (const RenderingUnavailable& error) {
      vtkErrorMacro(<< error.what());
    }
  }
}

bool EglRenderWindow::IsCurrent() {
  return _context && _context->isCurrent();
}

}  // namespace vemo
