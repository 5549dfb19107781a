#include "base/AtomicFile.h"
#include "vemoview/render/PixelMeans.h"
#include "vemoview/render/PngEncoder.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>

#include <vtkNew.h>
#include <vtkRenderWindow.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <span>

namespace vemo {

namespace {

/// What is read from OpenGL at once, in rows of the picture: little memory, and
/// few calls.
constexpr int ROWS_AT_ONCE = 64;

}  // namespace

Picture::Picture(int width, int height) : _width(width), _height(height) {
  VEMO_REQUIRE(width > 0 && height > 0, "A picture has at least one pixel");
  _bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * CHANNELS);
}

Picture Picture::of(vtkRenderWindow& window, int enlargement) {
  const int* const size = window.GetSize();
  VEMO_REQUIRE(enlargement > 0 && size[0] % enlargement == 0 && size[1] % enlargement == 0,
               "The window is larger by a whole factor");
  Picture picture(size[0] / enlargement, size[1] / enlargement);
  for (int first = 0; first < picture._height; first += ROWS_AT_ONCE) {
    picture.readRows(window, enlargement, first, std::min(ROWS_AT_ONCE, picture._height - first));
  }
  return picture;
}

/// @param first counted from the bottom, as OpenGL does
void Picture::readRows(vtkRenderWindow& window, int enlargement, int first, int count) {
  const int columns = _width * enlargement;
  vtkNew<vtkUnsignedCharArray> pixels;
  const int status = window.GetRGBACharPixelData(0, first * enlargement, columns - 1,
                                                 (first + count) * enlargement - 1, 0, pixels);
  const std::span<const std::uint8_t> all(pixels->GetPointer(0),
                                          static_cast<std::size_t>(pixels->GetNumberOfValues()));
  const std::size_t squareRowBytes =
      static_cast<std::size_t>(columns) * static_cast<std::size_t>(enlargement) * 4;
  if (status != VTK_OK || all.size() != squareRowBytes * static_cast<std::size_t>(count)) {
    throw RenderingUnavailable("The picture could not be read back from OpenGL");
  }
  const std::size_t rowBytes = static_cast<std::size_t>(_width) * CHANNELS;
  for (int row = 0; row < count; ++row) {
    averageSquares(all.subspan(squareRowBytes * static_cast<std::size_t>(row), squareRowBytes), enlargement,
                   std::span(_bytes).subspan(offset(0, _height - 1 - first - row), rowBytes));
  }
}

std::size_t Picture::offset(int column, int row) const {
  VEMO_REQUIRE(column >= 0 && column < _width && row >= 0 && row < _height, "No such pixel");
  return (static_cast<std::size_t>(row) * static_cast<std::size_t>(_width) +
          static_cast<std::size_t>(column)) *
         CHANNELS;
}

Picture::Pixel Picture::at(int column, int row) const {
  const std::size_t at = offset(column, row);
  return {_bytes[at], _bytes[at + 1], _bytes[at + 2]};
}

void Picture::set(int column, int row, const Pixel& pixel) {
  std::ranges::copy(pixel, _bytes.begin() + static_cast<std::ptrdiff_t>(offset(column, row)));
}

std::vector<std::uint8_t> Picture::toPng() const {
  return encodePng(*this);
}

void Picture::writePng(const std::filesystem::path& path) const {
  try {
    OS::writeAtomically(path, toPng());
  } catch (const OS::FileWriteError& error) {
    throw PictureWriteError(error.what());
  }
}

}  // namespace vemo
