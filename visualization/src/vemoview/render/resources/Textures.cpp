#include "vemoview/render/resources/Textures.h"

#include "vemoview/render/resources/ImageTexture.h"
#include <vemo/resolve/Decoration.h>

#include <vtkDataArray.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>

namespace vemo {

namespace {

/// VTK takes an image of one column for one that lies in another plane, and
/// would show its rows side by side. Two equal columns look like one.
vtkSmartPointer<vtkDataArray> twoColumns(vtkDataArray& column) {
  auto pixels = vtkSmartPointer<vtkDataArray>::Take(column.NewInstance());
  pixels->SetNumberOfComponents(column.GetNumberOfComponents());
  pixels->SetNumberOfTuples(2 * column.GetNumberOfTuples());
  for (vtkIdType row = 0; row < column.GetNumberOfTuples(); ++row) {
    pixels->SetTuple(2 * row, row, &column);
    pixels->SetTuple(2 * row + 1, row, &column);
  }
  return pixels;
}

vtkSmartPointer<vtkTexture> makeTexture(const ImageDecoration& image) {
  vtkNew<vtkImageData> pixels;
  const bool isColumn = image.width == 1;
  pixels->SetDimensions(isColumn ? 2 : image.width, image.height, 1);
  pixels->GetPointData()->SetScalars(isColumn ? twoColumns(*image.pixels) : image.pixels);
  auto texture = vtkSmartPointer<ImageTexture>::New();
  texture->SetInputData(pixels);
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
