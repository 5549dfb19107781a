#include <vemo/render/RenderErrors.h>

namespace vemo {

// Key functions: one typeinfo per class, so exceptions can be caught across
// libraries.
RenderError::~RenderError() = default;
RenderingUnavailable::~RenderingUnavailable() = default;
NothingToFit::~NothingToFit() = default;
PictureWriteError::~PictureWriteError() = default;

}  // namespace vemo
