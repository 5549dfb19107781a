#include "support/Files.h"
#include "support/TemporaryFolder.h"
#include "vemoview/render/PixelMeans.h"
#include "vemoview/render/context/EglRenderWindow.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGReader.h>

#include <array>
#include <gtest/gtest.h>

namespace vemo {

namespace {

namespace fs = std::filesystem;
using Pixel = Picture::Pixel;

Picture makePicture(int width, const Pixel& first, const Pixel& last) {
  Picture picture(width, 2);
  picture.set(0, 0, first);
  picture.set(width - 1, 1, last);
  return picture;
}

TEST(PictureTest, KeepsItsPixelsInAPngFile) {
  const TemporaryFolder folder;
  const fs::path file = folder / "p\xC3\xAC\xFF.png";
  makePicture(3, {255, 0, 0}, {0, 0, 255}).writePng(file);
  vtkNew<vtkPNGReader> reader;
  reader->SetFileName(file.c_str());
  reader->Update();
  vtkImageData* const image = reader->GetOutput();
  ASSERT_EQ(image->GetDimensions()[0], 3);
  ASSERT_EQ(image->GetDimensions()[1], 2);
  ASSERT_EQ(image->GetNumberOfScalarComponents(), 3);
  // VTK's rows begin at the bottom.
  EXPECT_EQ(image->GetScalarComponentAsDouble(0, 1, 0, 0), 255);
  EXPECT_EQ(image->GetScalarComponentAsDouble(2, 0, 0, 2), 255);
  EXPECT_EQ(image->GetScalarComponentAsDouble(1, 0, 0, 1), 0);
}

TEST(PictureTest, FailsWhereItCannotBeWritten) {
  const TemporaryFolder folder;
  const Picture picture = makePicture(3, {255, 0, 0}, {0, 0, 255});
  fs::create_symlink("no folder/a.png", folder / "dangling.png");
  for (const fs::path& bad : {folder / "no folder/a.png", folder / "dangling.png", folder / "",
                              folder / std::string(300, 'x'), fs::path("/dev/full")}) {
    EXPECT_THROW(picture.writePng(bad), PictureWriteError) << bad;
  }
  EXPECT_EQ(countFiles(folder.path()), 1);
}

TEST(PictureTest, TakesTheMeansOfSquares) {
  const std::array<std::uint8_t, 32> rows{255, 0, 0, 9, 0,   0, 0, 9, 0, 0, 0, 9, 0, 0, 0,   9,
                                          0,   0, 0, 9, 255, 8, 0, 9, 0, 0, 0, 9, 0, 0, 101, 9};
  std::array<std::uint8_t, 6> means{};
  averageSquares(rows, 2, means);
  EXPECT_EQ(means, (std::array<std::uint8_t, 6>{128, 2, 0, 0, 0, 25}));
  averageSquares(std::span(rows).first(8), 1, means);
  EXPECT_EQ(means, (std::array<std::uint8_t, 6>{255, 0, 0, 0, 0, 0}));
  EXPECT_THROW(averageSquares(std::span(rows).first(28), 2, means), InternalError);
  EXPECT_THROW(averageSquares(std::span(rows).first(18), 3, std::span(means).first(0)), InternalError);
  EXPECT_THROW(averageSquares(std::span(rows).first(0), 3, std::span(means).first(0)), InternalError);
}

TEST(PictureTest, RefusesPixelsThatItDoesNotHave) {
  EXPECT_THROW(Picture(0, 1), InternalError);
  EXPECT_THROW(Picture(2, 2).at(2, 0), InternalError);
  EXPECT_THROW(Picture(2, 2).at(0, -1), InternalError);
  EXPECT_THROW(Picture(2, 2, 5), InternalError);
  EXPECT_THROW(Picture::withOpacity(Picture(2, 2), Picture(2, 1)), InternalError);
  EXPECT_THROW(Picture::of(*EglRenderWindow::open(3, 3), 2), InternalError);
}

TEST(PictureTest, IsNoMoreThanOpaque) {
  Picture onBlack(1, 1);
  onBlack.set(0, 0, {9, 0, 0});
  EXPECT_EQ(Picture::withOpacity(onBlack, Picture(1, 1)).getBytes(),
            (std::vector<std::uint8_t>{9, 0, 0, 255}));
}

}  // namespace

}  // namespace vemo
