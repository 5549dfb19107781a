#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/attributes/CoordinateSpace.h>

#include <vtkSmartPointer.h>

namespace lum {

/// An image and its size. Its lower left corner is at its drawable's position.
class VEMO_SCENEGRAPH_EXPORT ImageAttributes final : public Attributes {
  LUM_NODE(ImageAttributes, Attributes)
  LUM_ENUMERATION(CoordinateSpace, CoordinateSpace, _coordinateSpace, CoordinateSpace::WINDOW)
  /// From the lower left corner to the lower right one, and to the upper left
  /// one, in that space.
  LUM_VALUE(Vector3, XAxis, _xAxis, {1.0, 0.0, 0.0})
  LUM_VALUE(Vector3, YAxis, _yAxis, {0.0, 1.0, 0.0})
  LUM_FIELD(std::int32_t, _width, 0)
  LUM_FIELD(std::int32_t, _height, 0)
  LUM_FIELD(vtkSmartPointer<vtkDataArray>, _pixels)

 public:
  std::int32_t getWidth() const { return _width; }
  std::int32_t getHeight() const { return _height; }

  /// One tuple a pixel, rows from bottom to top: bytes of grey, grey and alpha,
  /// red, green and blue, or these and alpha. Null when there is no image.
  vtkDataArray* getPixels() const;

  /// Throws InternalError unless the array has width x height tuples of 1 to 4
  /// bytes. The array is shared, not copied.
  void setPixels(vtkDataArray* pixels, std::int32_t width, std::int32_t height);

  /// Whether there are pixels that setPixels would accept.
  bool hasValidPixels() const;
};

}  // namespace lum
