#include <vemo/render/RenderErrors.h>

namespace vemo {

// The destructors stand here so that each class has one type description, by
// which exceptions that cross library borders are recognised.
RenderError::~RenderError() = default;
RenderingUnavailable::~RenderingUnavailable() = default;
PictureWriteError::~PictureWriteError() = default;

}  // namespace vemo
