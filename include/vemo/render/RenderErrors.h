#pragma once

#include <vemo/render/Export.h>

#include <stdexcept>

namespace vemo {

/// Root of what the render library throws, except for SceneTooLarge. The text
/// tells a user the cause.
class VEMO_RENDER_EXPORT RenderError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~RenderError() override;
};

/// There is no OpenGL on this machine, or not the OpenGL that is needed.
class VEMO_RENDER_EXPORT RenderingUnavailable : public RenderError {
 public:
  using RenderError::RenderError;
  ~RenderingUnavailable() override;
};

/// What is to fill a picture shows no geometry.
class VEMO_RENDER_EXPORT NothingToFit : public RenderError {
 public:
  using RenderError::RenderError;
  ~NothingToFit() override;
};

/// A picture could not be written to its file.
class VEMO_RENDER_EXPORT PictureWriteError : public RenderError {
 public:
  using RenderError::RenderError;
  ~PictureWriteError() override;
};

}  // namespace vemo
