#include "vemoview/render/resources/ImageTexture.h"

#include <vtkDataArray.h>
#include <vtkImageData.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLRenderWindow.h>
#include <vtkPointData.h>
#include <vtkRenderer.h>
#include <vtkTextureObject.h>
#include <vtk_glew.h>

#include <algorithm>
#include <bit>

namespace vemo {

namespace {

int largestSide(vtkImageData& image) {
  const int* const size = image.GetDimensions();
  return std::max(size[0], size[1]);
}

vtkDataArray& pixelsOf(vtkImageData& image) {
  return *image.GetPointData()->GetScalars();
}

/// Otherwise Mesa has all pixels a second time when it makes their means.
void announceMeans(vtkTextureObject& texture, vtkImageData& image) {
  texture.SetMinificationFilter(vtkTextureObject::LinearMipmapLinear);
  texture.SetMaxLevel(static_cast<int>(std::bit_width(static_cast<unsigned>(largestSide(image)))) - 1);
}

/// All that shaders read, whether or not they know that there is one channel only.
void showRedAsGrey() {
  constexpr GLint SHOWN[] = {GL_RED, GL_RED, GL_RED, GL_ONE};
  glTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_SWIZZLE_RGBA, SHOWN);
}

}  // namespace

vtkStandardNewMacro(ImageTexture);

ImageTexture::ImageTexture() {
  // Bytes are colours already, grey ones too.
  SetColorModeToDirectScalars();
  InterpolateOn();
  // Pixels that are drawn smaller become means, so that no fine lines are lost.
  MipmapOn();
  // More makes enlarged pixels uneven in Mesa.
  SetMaximumAnisotropicFiltering(1.0F);
  RepeatOff();
  EdgeClampOn();
  TextureObject = vtkTextureObject::New();
}

void ImageTexture::Load(vtkRenderer* renderer) {
  vtkImageData& image = *GetInput();
  auto& window = *vtkOpenGLRenderWindow::SafeDownCast(renderer->GetRenderWindow());
  announceMeans(*TextureObject, image);
  if (pixelsOf(image).GetNumberOfComponents() > 1 ||
      largestSide(image) > vtkTextureObject::GetMaximumTextureSize(&window)) {
    vtkOpenGLTexture::Load(renderer);
    return;
  }
  if (!isLoadedGrey(window)) {
    loadGrey(window);
  }
  TextureObject->Activate();
}

bool ImageTexture::isLoadedGrey(vtkOpenGLRenderWindow& window) {
  return RenderWindow == &window && LoadTime.GetMTime() > GetMTime() &&
         LoadTime.GetMTime() > GetInput()->GetMTime() &&
         LoadTime.GetMTime() > window.GetContextCreationTime();
}

void ImageTexture::loadGrey(vtkOpenGLRenderWindow& window) {
  vtkImageData& image = *GetInput();
  const int* const size = image.GetDimensions();
  RenderWindow = &window;
  TextureObject->ResetFormatAndType();
  TextureObject->SetContext(&window);
  TextureObject->Create2DFromRaw(static_cast<unsigned>(size[0]), static_cast<unsigned>(size[1]), 1,
                                 VTK_UNSIGNED_CHAR, pixelsOf(image).GetVoidPointer(0));
  TextureObject->SetMagnificationFilter(vtkTextureObject::Linear);
  TextureObject->SetWrapS(vtkTextureObject::ClampToEdge);
  TextureObject->SetWrapT(vtkTextureObject::ClampToEdge);
  TextureObject->SetMaximumAnisotropicFiltering(GetMaximumAnisotropicFiltering());
  TextureObject->Activate();
  showRedAsGrey();
  glGenerateMipmap(GL_TEXTURE_2D);
  LoadTime.Modified();
}

}  // namespace vemo
