#include "support/Meshes.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include "vemoview/render/resources/ImageTexture.h"
#include <vemo/render/Picture.h>

#include <vtkActor.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkTextureObject.h>
#include <vtkUnsignedCharArray.h>

#include <array>
#include <cstdint>
#include <gtest/gtest.h>

namespace vemo {

namespace {

TEST(ImageTextureTest, HasAByteOfEachGreyPixelAndFollowsChangesInEachWindow) {
  vtkNew<vtkImageData> image;
  image->SetDimensions(2, 2, 1);
  const auto pixels = makeArray<vtkUnsignedCharArray>("pixels", {0, 0, 0, 0});
  image->GetPointData()->SetScalars(pixels);
  vtkNew<ImageTexture> texture;
  texture->SetInputData(image);
  vtkNew<vtkPlaneSource> plane;
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputConnection(plane->GetOutputPort());
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  actor->GetProperty()->LightingOff();
  actor->SetTexture(texture);
  for (int i = 0; i < 2; ++i) {
    const auto window = EglRenderWindow::open(20, 20);
    vtkNew<vtkRenderer> renderer;
    renderer->AddActor(actor);
    window->AddRenderer(renderer);
    for (const std::uint8_t grey : std::array<std::uint8_t, 2>{130, 240}) {
      pixels->Fill(grey);
      pixels->Modified();
      window->Render();
      EXPECT_EQ(Picture::of(*window).at(10, 10), (Picture::Pixel{grey, grey, grey}));
      EXPECT_EQ(texture->GetTextureObject()->GetComponents(), 1);
    }
    renderer->RemoveActor(actor);
    texture->ReleaseGraphicsResources(window);
  }
}

}  // namespace

}  // namespace vemo
