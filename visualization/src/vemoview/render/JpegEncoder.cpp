#include "vemoview/render/JpegEncoder.h"

#include <vemo/base/InternalError.h>
#include <vemo/render/Picture.h>

#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>

// It needs <cstdio>.
#include <jpeglib.h>

namespace vemo {

namespace {

/// The library's way to end with an error: to where the encoding began.
struct JpegErrors {
  jpeg_error_mgr manager;
  std::jmp_buf start;
};

void endEncoding(j_common_ptr encoder) {
  std::longjmp(reinterpret_cast<JpegErrors*>(encoder->err)->start, 1);
}

void prepare(jpeg_compress_struct& encoder, const Picture& picture) {
  constexpr int QUALITY = 95;
  encoder.image_width = static_cast<JDIMENSION>(picture.getWidth());
  encoder.image_height = static_cast<JDIMENSION>(picture.getHeight());
  encoder.input_components = Picture::CHANNELS;
  encoder.in_color_space = JCS_RGB;
  jpeg_set_defaults(&encoder);
  jpeg_set_quality(&encoder, QUALITY, TRUE);
  // Colours as fine as brightness: thin coloured lines would fade.
  encoder.comp_info[0].h_samp_factor = 1;
  encoder.comp_info[0].v_samp_factor = 1;
}

/// False for an error. Nothing in it has a destructor, which a jump would not call.
bool encode(jpeg_compress_struct& encoder, JpegErrors& errors, const Picture& picture, unsigned char*& bytes,
            unsigned long& size) {
  if (setjmp(errors.start) != 0) {
    return false;
  }
  jpeg_create_compress(&encoder);
  jpeg_mem_dest(&encoder, &bytes, &size);
  prepare(encoder, picture);
  jpeg_start_compress(&encoder, TRUE);
  while (encoder.next_scanline < encoder.image_height) {
    const std::size_t start = std::size_t{encoder.next_scanline} * encoder.image_width * Picture::CHANNELS;
    // The library does not change the row.
    JSAMPROW row = const_cast<JSAMPROW>(picture.getBytes().data() + start);
    jpeg_write_scanlines(&encoder, &row, 1);
  }
  jpeg_finish_compress(&encoder);
  return true;
}

}  // namespace

std::vector<std::uint8_t> encodeJpeg(const Picture& picture) {
  VEMO_REQUIRE(picture.getChannels() == Picture::CHANNELS, "A JPEG file has no opacities");
  jpeg_compress_struct encoder{};
  JpegErrors errors{};
  encoder.err = jpeg_std_error(&errors.manager);
  errors.manager.error_exit = endEncoding;
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  const bool isEncoded = encode(encoder, errors, picture, bytes, size);
  jpeg_destroy_compress(&encoder);
  // An encoder that failed may have freed the buffer.
  const std::unique_ptr<unsigned char, decltype(&std::free)> buffer(isEncoded ? bytes : nullptr, &std::free);
  VEMO_REQUIRE(isEncoded, "The picture could not be encoded");
  return {bytes, bytes + size};
}

}  // namespace vemo
