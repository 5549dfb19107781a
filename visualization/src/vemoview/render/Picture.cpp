#include "base/AtomicFile.h"
#include "vemoview/render/JpegEncoder.h"
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

constexpr int OPAQUE = 255;

void write(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes) {
  try {
    OS::writeAtomically(path, bytes);
  } catch (const OS::FileWriteError& error) {
    throw PictureWriteError(error.what());
  }
}

/// A channel on black is that of the colour as far as it is opaque; white shines through
/// the rest. Rounding may make the channels' opacities differ: the greatest leaves no
/// channel brighter than it can be.
void addOpacity(const std::uint8_t* onBlack, const std::uint8_t* onWhite, std::uint8_t* to) {
  int opacity = 0;
  for (std::ptrdiff_t i = 0; i < Picture::CHANNELS; ++i) {
    opacity = std::max(opacity, OPAQUE - (onWhite[i] - onBlack[i]));
  }
  opacity = std::min(opacity, OPAQUE);
  for (std::ptrdiff_t i = 0; i < Picture::CHANNELS && opacity > 0; ++i) {
    to[i] = static_cast<std::uint8_t>((onBlack[i] * OPAQUE + opacity / 2) / opacity);
  }
  to[Picture::CHANNELS] = static_cast<std::uint8_t>(opacity);
}

}  // namespace

Picture::Picture(int width, int height, int channels) : _width(width), _height(height), _channels(channels) {
  VEMO_REQUIRE(width > 0 && height > 0, "A picture has at least one pixel");
  VEMO_REQUIRE(channels == CHANNELS || channels == CHANNELS_WITH_OPACITY, "Pixels have three or four bytes");
  _bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                static_cast<std::size_t>(channels));
}

Picture Picture::withOpacity(const Picture& onBlack, const Picture& onWhite) {
  VEMO_REQUIRE(onBlack._width == onWhite._width && onBlack._bytes.size() == onWhite._bytes.size() &&
                   onBlack._channels == CHANNELS && onWhite._channels == CHANNELS,
               "The pictures are of the same size");
  Picture picture(onBlack._width, onBlack._height, CHANNELS_WITH_OPACITY);
  const std::size_t pixels = onBlack._bytes.size() / CHANNELS;
  for (std::size_t i = 0; i < pixels; ++i) {
    addOpacity(&onBlack._bytes[i * CHANNELS], &onWhite._bytes[i * CHANNELS],
               &picture._bytes[i * CHANNELS_WITH_OPACITY]);
  }
  return picture;
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
         static_cast<std::size_t>(_channels);
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
  write(path, toPng());
}

std::vector<std::uint8_t> Picture::toJpeg() const {
  return encodeJpeg(*this);
}

void Picture::writeJpeg(const std::filesystem::path& path) const {
  write(path, toJpeg());
}

}  // namespace vemo
