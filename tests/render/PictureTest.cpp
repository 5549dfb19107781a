#include "errors/InternalError.h"
#include "vemoview/render/Picture.h"
#include "vemoview/render/RenderErrors.h"

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGReader.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, gone with it.
class PictureFile : public testing::Test {
 protected:
  PictureFile() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    _folder = fs::path(testing::TempDir()) / (std::string("vemo-picture-") + test->name());
    fs::remove_all(_folder);
    fs::create_directories(_folder);
  }
  ~PictureFile() override { fs::remove_all(_folder); }

  fs::path path(const std::string& name) const { return _folder / name; }
  auto fileCount() const { return std::distance(fs::directory_iterator(_folder), {}); }

  static Picture makePicture() {
    Picture picture(3, 2);
    picture.set(0, 0, {255, 0, 0});
    picture.set(2, 1, {0, 0, 255});
    return picture;
  }
  static std::vector<std::uint8_t> readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  fs::path _folder;
};

TEST_F(PictureFile, KeepsItsPixels) {
  const fs::path file = path(
      "p\xC3\xAC"
      "c\xFF.png");
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

TEST_F(PictureFile, ReplacesAnOldFileThroughLinksAndLeavesNothingElse) {
  const Picture picture = makePicture();
  std::ofstream(path("old.png")) << "old";
  fs::create_symlink("old.png", path("link.png"));
  const mode_t mask = ::umask(0027);
  picture.writePng(path("link.png"));
  ::umask(mask);
  EXPECT_TRUE(fs::is_symlink(path("link.png")));
  EXPECT_EQ(readBytes(path("old.png")), picture.toPng());
  EXPECT_EQ(fs::status(path("old.png")).permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(fileCount(), 2);
}

TEST_F(PictureFile, SaysWhenItCannotBeWritten) {
  const Picture picture = makePicture();
  const std::string tooLong(300, 'x');
  for (const fs::path& bad : {path("no folder/a.png"), path(""), path(tooLong), fs::path("/dev/full")}) {
    EXPECT_THROW(picture.writePng(bad), PictureWriteError) << bad;
  }
  EXPECT_EQ(fileCount(), 0);
}

TEST(Picture, RefusesPixelsThatItDoesNotHave) {
  EXPECT_THROW(Picture(0, 1), InternalError);
  EXPECT_THROW(Picture(2, 2).at(2, 0), InternalError);
  EXPECT_THROW(Picture(2, 2).at(0, -1), InternalError);
}

}  // namespace
