#include "support/TemporaryFolder.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGReader.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

namespace vemo {

namespace {

namespace fs = std::filesystem;

Picture makePicture() {
  Picture picture(3, 2);
  picture.set(0, 0, {255, 0, 0});
  picture.set(2, 1, {0, 0, 255});
  return picture;
}

std::vector<std::uint8_t> readBytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

auto countFiles(const TemporaryFolder& folder) {
  return std::distance(fs::directory_iterator(folder.path()), {});
}

TEST(Picture, KeepsItsPixelsInAPngFile) {
  const TemporaryFolder folder;
  const fs::path file = folder / "p\xC3\xAC\xFF.png";
  makePicture().writePng(file);
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

TEST(Picture, FollowsLinksAndLeavesNothingElse) {
  const TemporaryFolder folder;
  const Picture picture = makePicture();
  std::ofstream(folder / "old.png") << "old";
  fs::permissions(folder / "old.png", fs::perms::owner_all);
  fs::create_symlink("old.png", folder / "link.png");
  fs::create_symlink("new.png", folder / "dangling.png");
  const mode_t mask = ::umask(0027);
  picture.writePng(folder / "link.png");
  picture.writePng(folder / "dangling.png");
  ::umask(mask);
  EXPECT_TRUE(fs::is_symlink(folder / "link.png"));
  EXPECT_TRUE(fs::is_symlink(folder / "dangling.png"));
  EXPECT_EQ(readBytes(folder / "old.png"), picture.toPng());
  EXPECT_EQ(fs::status(folder / "old.png").permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(folder / "new.png").permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(countFiles(folder), 4);
}

TEST(Picture, SaysWhenItCannotBeWritten) {
  const TemporaryFolder folder;
  const Picture picture = makePicture();
  const std::string tooLong(300, 'x');
  fs::create_symlink("no folder/a.png", folder / "dangling.png");
  for (const fs::path& bad : {folder / "no folder/a.png", folder / "dangling.png", folder / "",
                              folder / tooLong, fs::path("/dev/full")}) {
    EXPECT_THROW(picture.writePng(bad), PictureWriteError) << bad;
  }
  EXPECT_TRUE(fs::is_symlink(folder / "dangling.png"));
  EXPECT_EQ(countFiles(folder), 1);
}

TEST(Picture, ShrinksToTheMeansOfSquares) {
  Picture large(4, 2);
  large.set(0, 0, {255, 0, 0});
  large.set(1, 1, {255, 8, 0});
  large.set(3, 1, {0, 0, 101});
  const Picture small = large.shrunk(2);
  EXPECT_EQ(small.getHeight(), 1);
  EXPECT_EQ(small.at(0, 0), (Picture::Pixel{128, 2, 0}));
  EXPECT_EQ(small.at(1, 0), (Picture::Pixel{0, 0, 25}));
  EXPECT_THROW(large.shrunk(3), InternalError);
}

TEST(Picture, RefusesPixelsThatItDoesNotHave) {
  EXPECT_THROW(Picture(0, 1), InternalError);
  EXPECT_THROW(Picture(2, 2).at(2, 0), InternalError);
  EXPECT_THROW(Picture(2, 2).at(0, -1), InternalError);
}

}  // namespace

}  // namespace vemo
