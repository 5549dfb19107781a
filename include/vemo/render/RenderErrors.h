#pragma once

#include <vemo/render/Export.h>

#include <stdexcept>

namespace vemo {

/// Root of what the render library throws. The text says the cause in words
/// for a user.
class VEMO_RENDER_EXPORT RenderError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~RenderError() override;
};

/// No OpenGL is to be had on this machine, or not the OpenGL that is needed.
class VEMO_RENDER_EXPORT RenderingUnavailable : public RenderError {
 public:
  using RenderError::RenderError;
  ~RenderingUnavailable() override;
};

/// A picture could not be written to its file.
class VEMO_RENDER_EXPORT PictureWriteError : public RenderError {
 public:
  using RenderError::RenderError;
  ~PictureWriteError() override;
};

}  // namespace vemo
