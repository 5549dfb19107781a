#pragma once

#include <vtkSmartPointer.h>

#include <map>
#include <tuple>

class vtkDataArray;
class vtkTexture;

namespace vemo {

struct ImageDecoration;

/// VTK's forms of pixels, each made once: an image may be shown very often.
class Textures {
 public:
  vtkTexture* get(const ImageDecoration& image);

 private:
  /// By their pixels, width and height.
  std::map<std::tuple<vtkSmartPointer<vtkDataArray>, int, int>, vtkSmartPointer<vtkTexture>> _textures;
};

}  // namespace vemo
