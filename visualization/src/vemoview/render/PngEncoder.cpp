#include "vemoview/render/PngEncoder.h"

#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <libdeflate.h>
#include <memory>
#include <span>
#include <string_view>

namespace vemo {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const { libdeflate_free_compressor(compressor); }
};

/// Numbers are big-endian.
void append(Bytes& bytes, std::uint32_t number) {
  for (const int shift : {24, 16, 8, 0}) {
    bytes.push_back(static_cast<std::uint8_t>(number >> shift));
  }
}

/// Its length, its type of four letters, its content, and a checksum of both.
void appendChunk(Bytes& bytes, std::string_view type, std::span<const std::uint8_t> content) {
  append(bytes, static_cast<std::uint32_t>(content.size()));
  const std::size_t start = bytes.size();
  bytes.insert(bytes.end(), type.begin(), type.end());
  bytes.insert(bytes.end(), content.begin(), content.end());
  append(bytes, libdeflate_crc32(0, bytes.data() + start, bytes.size() - start));
}

Bytes headerOf(const Picture& picture) {
  constexpr std::uint8_t BITS_PER_CHANNEL = 8;
  constexpr std::uint8_t RGB = 2;
  constexpr std::uint8_t RGBA = 6;
  Bytes header;
  append(header, static_cast<std::uint32_t>(picture.getWidth()));
  append(header, static_cast<std::uint32_t>(picture.getHeight()));
  header.insert(header.end(),
                {BITS_PER_CHANNEL, picture.getChannels() == Picture::CHANNELS ? RGB : RGBA, 0, 0, 0});
  return header;
}

/// Each row begins with the number of its filter. This one keeps the differences
/// from the row above: smooth shading makes them small.
Bytes filtered(const Picture& picture) {
  constexpr std::uint8_t UP = 2;
  const Bytes& pixels = picture.getBytes();
  const std::size_t rowBytes =
      static_cast<std::size_t>(picture.getWidth()) * static_cast<std::size_t>(picture.getChannels());
  const Bytes black(rowBytes);
  const std::uint8_t* above = black.data();
  Bytes rows(pixels.size() + static_cast<std::size_t>(picture.getHeight()));
  auto to = rows.begin();
  for (std::size_t start = 0; start < pixels.size(); start += rowBytes) {
    const std::uint8_t* const row = pixels.data() + start;
    *to++ = UP;
    to = std::transform(row, row + rowBytes, above, to, [](std::uint8_t byte, std::uint8_t over) {
      return static_cast<std::uint8_t>(byte - over);
    });
    above = row;
  }
  return rows;
}

Bytes compressed(const Bytes& bytes) {
  constexpr int LEVEL = 6;
  const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(libdeflate_alloc_compressor(LEVEL));
  VEMO_REQUIRE(compressor != nullptr, "The picture could not be encoded");
  Bytes result(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()));
  result.resize(
      libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(), result.data(), result.size()));
  VEMO_REQUIRE(!result.empty(), "The picture could not be encoded");
  return result;
}

}  // namespace

Bytes encodePng(const Picture& picture) {
  Bytes file(Picture::PNG_SIGNATURE.begin(), Picture::PNG_SIGNATURE.end());
  appendChunk(file, "IHDR", headerOf(picture));
  appendChunk(file, "IDAT", compressed(filtered(picture)));
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace vemo
