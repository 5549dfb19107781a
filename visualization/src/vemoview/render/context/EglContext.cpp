#include "vemoview/render/context/EglContext.h"

#include "vemoview/render/context/CurrentContextKeeper.h"
#include <vemo/render/RenderErrors.h>

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <array>
#include <future>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vemo {

namespace {

std::string describeEglError(const char* attempt) {
  std::ostringstream text;
  text << attempt << " failed with EGL error 0x" << std::hex << eglGetError();
  return text.str();
}

/// Extension lists are words separated by blanks.
bool hasExtension(std::string_view extensions, std::string_view name) {
  for (std::size_t at = extensions.find(name); at != std::string_view::npos;
       at = extensions.find(name, at + 1)) {
    const std::size_t end = at + name.size();
    if ((at == 0 || extensions[at - 1] == ' ') && (end == extensions.size() || extensions[end] == ' ')) {
      return true;
    }
  }
  return false;
}

template <class Function>
Function eglFunction(const char* name) {
  return reinterpret_cast<Function>(eglGetProcAddress(name));
}

EGLDisplay initialized(EGLDisplay display) {
  return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE ? display
                                                                                           : EGL_NO_DISPLAY;
}

EGLDisplay openDeviceDisplay(PFNEGLGETPLATFORMDISPLAYEXTPROC getPlatformDisplay) {
  const auto queryDevices = eglFunction<PFNEGLQUERYDEVICESEXTPROC>("eglQueryDevicesEXT");
  EGLint count = 0;
  if (queryDevices == nullptr || queryDevices(0, nullptr, &count) != EGL_TRUE || count <= 0) {
    return EGL_NO_DISPLAY;
  }
  std::vector<EGLDeviceEXT> devices(static_cast<std::size_t>(count));
  if (queryDevices(count, devices.data(), &count) != EGL_TRUE) {
    return EGL_NO_DISPLAY;
  }
  for (const EGLDeviceEXT device : devices) {
    const EGLDisplay display = initialized(getPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, device, nullptr));
    if (display != EGL_NO_DISPLAY) {
      return display;
    }
  }
  return EGL_NO_DISPLAY;
}

/// A driver in software waits forever for threads that it cannot start.
void requireThreads() {
  constexpr int COUNT = 4;
  std::vector<std::jthread> threads;
  // Destroyed before the threads are joined, which ends them.
  std::promise<void> end;
  const std::shared_future<void> ended = end.get_future().share();
  try {
    for (int i = 0; i < COUNT; ++i) {
      threads.emplace_back([ended] { ended.wait(); });
    }
  } catch (const std::system_error& error) {
    throw RenderingUnavailable("OpenGL cannot be used: Cannot start a thread: " + error.code().message());
  }
}

/// The platform without surfaces first: it accepts any driver, including
/// software. A driver without that platform may still offer devices.
EGLDisplay openDisplay() {
  requireThreads();
  const char* const found = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
  const std::string_view extensions = found == nullptr ? "" : found;
  const auto getPlatformDisplay = eglFunction<PFNEGLGETPLATFORMDISPLAYEXTPROC>("eglGetPlatformDisplayEXT");
  EGLDisplay display = EGL_NO_DISPLAY;
  if (getPlatformDisplay != nullptr && hasExtension(extensions, "EGL_MESA_platform_surfaceless")) {
    display = initialized(getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
  }
  if (display == EGL_NO_DISPLAY && getPlatformDisplay != nullptr &&
      hasExtension(extensions, "EGL_EXT_platform_device")) {
    display = openDeviceDisplay(getPlatformDisplay);
  }
  if (display == EGL_NO_DISPLAY) {
    throw RenderingUnavailable("No OpenGL is available: no EGL driver can draw without a screen");
  }
  return display;
}

/// Opened at the first use; after a failure the next use tries again. A forked process has a copy of it, but
/// not the threads with which a driver in software draws: it would wait for them forever.
EGLDisplay sharedDisplay() {
  static const EGLDisplay display = openDisplay();
  static const pid_t process = getpid();
  if (getpid() != process) {
    throw RenderingUnavailable(
        "No OpenGL is available: this process was forked from one that had already used it");
  }
  return display;
}

/// Each thread has its own choice of client interface.
void bindOpenGL() {
  if (eglBindAPI(EGL_OPENGL_API) != EGL_TRUE) {
    throw RenderingUnavailable("No OpenGL is available: " + describeEglError("choosing OpenGL"));
  }
}

EGLConfig chooseConfig(EGLDisplay display) {
  constexpr std::array<EGLint, 15> WANTED = {EGL_SURFACE_TYPE,
                                             EGL_PBUFFER_BIT,
                                             EGL_RENDERABLE_TYPE,
                                             EGL_OPENGL_BIT,
                                             EGL_RED_SIZE,
                                             8,
                                             EGL_GREEN_SIZE,
                                             8,
                                             EGL_BLUE_SIZE,
                                             8,
                                             EGL_ALPHA_SIZE,
                                             8,
                                             EGL_DEPTH_SIZE,
                                             24,
                                             EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (eglChooseConfig(display, WANTED.data(), &config, 1, &count) != EGL_TRUE || count < 1) {
    throw RenderingUnavailable(
        "No OpenGL is available: the EGL driver has no frame buffer with 8 bits per channel");
  }
  return config;
}

}  // namespace

EglContext::EglContext() : _display(sharedDisplay()) {
  constexpr std::array<EGLint, 7> VERSION = {EGL_CONTEXT_MAJOR_VERSION,
                                             3,
                                             EGL_CONTEXT_MINOR_VERSION,
                                             2,
                                             EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                             EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                             EGL_NONE};
  constexpr std::array<EGLint, 5> SIZE = {EGL_WIDTH, 1, EGL_HEIGHT, 1, EGL_NONE};
  const CurrentContextKeeper keeper;
  bindOpenGL();
  const EGLConfig config = chooseConfig(_display);
  _context = eglCreateContext(_display, config, EGL_NO_CONTEXT, VERSION.data());
  if (_context == EGL_NO_CONTEXT) {
    throw RenderingUnavailable("OpenGL 3.2 is not available: " + describeEglError("making a context"));
  }
  // Drivers that refuse the surface accept the context without one.
  _surface = eglCreatePbufferSurface(_display, config, SIZE.data());
}

EglContext::~EglContext() {
  release();
  if (_surface != EGL_NO_SURFACE) {
    eglDestroySurface(_display, _surface);
  }
  eglDestroyContext(_display, _context);
}

void EglContext::makeCurrent() const {
  bindOpenGL();
  if (eglMakeCurrent(_display, _surface, _surface, _context) != EGL_TRUE) {
    throw RenderingUnavailable("The OpenGL context cannot be used: " + describeEglError("making it current"));
  }
}

bool EglContext::isCurrent() const {
  return eglGetCurrentContext() == _context;
}

void EglContext::release() const {
  if (isCurrent()) {
    eglMakeCurrent(_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  }
}

}  // namespace vemo
