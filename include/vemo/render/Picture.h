#pragma once

#include <vemo/render/Export.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

class vtkRenderWindow;

namespace vemo {

/// A picture: rows of pixels from top to bottom, three bytes (red, green, blue)
/// a pixel, or four (and opacity).
class VEMO_RENDER_EXPORT Picture {
 public:
  static constexpr int CHANNELS = 3;
  static constexpr int CHANNELS_WITH_OPACITY = 4;
  /// The first bytes of every PNG file.
  static constexpr std::string_view PNG_SIGNATURE = "\x89PNG\r\n\x1A\n";
  /// The first bytes of every JPEG file.
  static constexpr std::string_view JPEG_SIGNATURE = "\xFF\xD8\xFF";
  using Pixel = std::array<std::uint8_t, CHANNELS>;

  /// A black picture. Sizes are in pixels, at least 1.
  Picture(int width, int height, int channels = CHANNELS);

  /// What a render window shows, read back from it. The window has been drawn,
  /// larger by a factor of 1 or 2 that divides its width and height: each pixel
  /// is the mean of a square.
  static Picture of(vtkRenderWindow& window, int enlargement = 1);

  /// The picture, with opacities, of what has been drawn on black and on white.
  static Picture withOpacity(const Picture& onBlack, const Picture& onWhite);

  int getWidth() const { return _width; }
  int getHeight() const { return _height; }
  int getChannels() const { return _channels; }

  /// The pixel in a column, counted from the left, and a row, counted from the
  /// top.
  Pixel at(int column, int row) const;
  void set(int column, int row, const Pixel& pixel);

  const std::vector<std::uint8_t>& getBytes() const { return _bytes; }

  /// The picture as the bytes of a PNG file; the same picture gives the same
  /// bytes.
  std::vector<std::uint8_t> toPng() const;

  /// Writes the picture as a PNG file. The file is complete or, when
  /// PictureWriteError is thrown, unchanged.
  void writePng(const std::filesystem::path& path) const;

  /// The same as a JPEG file, of a picture without opacities.
  std::vector<std::uint8_t> toJpeg() const;
  void writeJpeg(const std::filesystem::path& path) const;

  friend bool operator==(const Picture&, const Picture&) = default;

 private:
  std::size_t offset(int column, int row) const;
  void readRows(vtkRenderWindow& window, int enlargement, int first, int count);

  int _width;
  int _height;
  int _channels;
  std::vector<std::uint8_t> _bytes;
};

}  // namespace vemo
