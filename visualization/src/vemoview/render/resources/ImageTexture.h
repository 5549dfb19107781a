#pragma once

#include <vtkOpenGLTexture.h>

class vtkOpenGLRenderWindow;

namespace vemo {

/// The texture of an image of bytes, with two columns and a row at least, that is drawn smaller as means of
/// its pixels. In OpenGL a grey pixel is one byte: VTK makes four of it.
class ImageTexture final : public vtkOpenGLTexture {
 public:
  static ImageTexture* New();
  vtkTypeMacro(ImageTexture, vtkOpenGLTexture)
  ImageTexture(const ImageTexture&) = delete;
  ImageTexture& operator=(const ImageTexture&) = delete;

  void Load(vtkRenderer* renderer) override;

 protected:
  ImageTexture();
  ~ImageTexture() override = default;

 private:
  bool isLoadedGrey(vtkOpenGLRenderWindow& window);
  void loadGrey(vtkOpenGLRenderWindow& window);
};

}  // namespace vemo
