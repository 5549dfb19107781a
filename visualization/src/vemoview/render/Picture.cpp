#include "base/AtomicFile.h"
#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>

#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPNGWriter.h>
#include <vtkRenderWindow.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cstring>
#include <span>

namespace vemo {

namespace {

/// VTK counts rows from the bottom.
void copyRowsReversed(const std::uint8_t* from, std::uint8_t* to, int rows, std::size_t rowBytes) {
  for (int row = 0; row < rows; ++row) {
    std::memcpy(to + static_cast<std::size_t>(row) * rowBytes,
                from + static_cast<std::size_t>(rows - 1 - row) * rowBytes, rowBytes);
  }
}

/// Adds each run of as many pixels to one pixel's sums.
void addRow(std::span<const std::uint8_t> row, int runLength, std::vector<std::uint32_t>& sums) {
  const std::uint8_t* from = row.data();
  for (std::size_t to = 0; to < sums.size(); to += Picture::CHANNELS) {
    for (int pixel = 0; pixel < runLength; ++pixel) {
      for (std::size_t channel = 0; channel < Picture::CHANNELS; ++channel) {
        sums[to + channel] += *from++;
      }
    }
  }
}

}  // namespace

Picture::Picture(int width, int height) : _width(width), _height(height) {
  VEMO_REQUIRE(width > 0 && height > 0, "A picture has at least one pixel");
  _bytes.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * CHANNELS);
}

Picture Picture::of(vtkRenderWindow& window) {
  const int* const size = window.GetSize();
  Picture picture(size[0], size[1]);
  vtkNew<vtkUnsignedCharArray> pixels;
  window.GetPixelData(0, 0, size[0] - 1, size[1] - 1, 0, pixels);
  if (static_cast<std::size_t>(pixels->GetNumberOfValues()) != picture._bytes.size()) {
    throw RenderingUnavailable("The picture could not be read back from OpenGL");
  }
  copyRowsReversed(pixels->GetPointer(0), picture._bytes.data(), picture._height,
                   static_cast<std::size_t>(picture._width) * CHANNELS);
  return picture;
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

Picture Picture::shrunk(int factor) const {
  VEMO_REQUIRE(factor > 0 && _width % factor == 0 && _height % factor == 0, "The factor divides the size");
  Picture result(_width / factor, _height / factor);
  const std::size_t rowBytes = static_cast<std::size_t>(_width) * CHANNELS;
  const std::uint8_t* from = _bytes.data();
  std::vector<std::uint32_t> sums(rowBytes / static_cast<std::size_t>(factor));
  const auto area = static_cast<std::uint32_t>(factor * factor);
  for (int row = 0; row < result._height; ++row) {
    std::ranges::fill(sums, 0U);
    for (int part = 0; part < factor; ++part, from += rowBytes) {
      addRow({from, rowBytes}, factor, sums);
    }
    const auto to = result._bytes.begin() + static_cast<std::ptrdiff_t>(sums.size()) * row;
    std::ranges::transform(
        sums, to, [area](std::uint32_t sum) { return static_cast<std::uint8_t>((sum + area / 2) / area); });
  }
  return result;
}

std::vector<std::uint8_t> Picture::toPng() const {
  vtkNew<vtkImageData> image;
  image->SetDimensions(_width, _height, 1);
  image->AllocateScalars(VTK_UNSIGNED_CHAR, CHANNELS);
  copyRowsReversed(_bytes.data(), static_cast<std::uint8_t*>(image->GetScalarPointer()), _height,
                   static_cast<std::size_t>(_width) * CHANNELS);
  vtkNew<vtkPNGWriter> writer;
  writer->WriteToMemoryOn();
  writer->SetInputData(image);
  writer->Write();
  const vtkUnsignedCharArray* const result = writer->GetResult();
  VEMO_REQUIRE(result != nullptr && result->GetNumberOfValues() > 0, "The picture could not be encoded");
  const std::uint8_t* const begin = writer->GetResult()->GetPointer(0);
  return {begin, begin + result->GetNumberOfValues()};
}

void Picture::writePng(const std::filesystem::path& path) const {
  try {
    OS::writeAtomically(path, toPng());
  } catch (const OS::FileWriteError& error) {
    throw PictureWriteError(error.what());
  }
}

}  // namespace vemo
