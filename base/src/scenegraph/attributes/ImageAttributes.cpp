#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/attributes/ImageAttributes.h>

#include <vtkDataArray.h>

namespace lum {

namespace {

bool fits(vtkDataArray* pixels, std::int32_t width, std::int32_t height) {
  return pixels != nullptr && pixels->GetDataType() == VTK_UNSIGNED_CHAR && width > 0 && height > 0 &&
         pixels->GetNumberOfComponents() >= 1 && pixels->GetNumberOfComponents() <= 4 &&
         pixels->GetNumberOfTuples() == static_cast<vtkIdType>(width) * height;
}

}  // namespace

vtkDataArray* ImageAttributes::getPixels() const {
  return _pixels;
}

void ImageAttributes::setPixels(vtkDataArray* pixels, std::int32_t width, std::int32_t height) {
  VEMO_REQUIRE(fits(pixels, width, height), "The pixels do not fit the image's size");
  _pixels = pixels;
  _width = width;
  _height = height;
  modified();
}

bool ImageAttributes::hasValidPixels() const {
  return fits(_pixels, _width, _height);
}

}  // namespace lum
