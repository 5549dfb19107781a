#include "vemoview/render/vtk/Textures.h"

#include <vemo/resolve/Decoration.h>

#include <vtkDataArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkTexture.h>

namespace vemo {

namespace {

vtkSmartPointer<vtkTexture> makeTexture(const ImageDecoration& image) {
  vtkNew<vtkImageData> pixels;
  pixels->SetDimensions(image.width, image.height, 1);
  pixels->GetPointData()->SetScalars(image.pixels);
  auto texture = vtkSmartPointer<vtkTexture>::New();
  texture->SetInputData(pixels);
  // Bytes are colours already, grey ones too.
  texture->SetColorModeToDirectScalars();
  texture->InterpolateOn();
  // Pixels that are drawn smaller become means, so that no fine lines are lost.
  texture->MipmapOn();
  // More makes enlarged pixels uneven in Mesa.
  texture->SetMaximumAnisotropicFiltering(1.0F);
  texture->RepeatOff();
  texture->EdgeClampOn();
  return texture;
}

}  // namespace

vtkTexture* Textures::get(const ImageDecoration& image) {
  auto& texture = _textures[{image.pixels, image.width, image.height}];
  if (texture == nullptr) {
    texture = makeTexture(image);
  }
  return texture;
}

}  // namespace vemo
