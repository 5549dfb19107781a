#include "picture/PictureFile.h"

#include "output/ExitCode.h"
#include "output/ResultStream.h"
#include "picture/ValueTexts.h"
#include <vemo/base/PrintableText.h>
#include <vemo/render/Picture.h>

#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <iterator>
#include <vector>

namespace vemo {

namespace {

constexpr FileKind PNG{".png", "PNG file", Picture::PNG_SIGNATURE, true};
constexpr FileKind JPEG{".jpg", "JPEG file", Picture::JPEG_SIGNATURE, true};
constexpr FileKind JPEG_OF_FOUR_LETTERS{".jpeg", "JPEG file", Picture::JPEG_SIGNATURE, true};

constexpr const FileKind* KINDS[] = {&PNG, &JPEG, &JPEG_OF_FOUR_LETTERS};

}  // namespace

const FileKind& parsePictureFormat(const std::string& format) {
  if (format != "png" && format != "jpeg") {
    throw InvalidValue(fmt::format("\"{}\" is not one of the formats png, jpeg", toPrintableLine(format)));
  }
  return format == "png" ? PNG : JPEG;
}

const FileKind& findPictureKind(const std::string& output, const FileKind* wanted) {
  const auto* const found =
      std::ranges::find_if(KINDS, [&](const FileKind* kind) { return hasExtension(output, *kind); });
  if (found != std::end(KINDS)) {
    if (wanted != nullptr && (*found)->start != wanted->start) {
      throw Failure(ExitCode::WRONG_USAGE,
                    fmt::format("\"{}\" has the extension of a {}, but --format asks for a {}", output,
                                (*found)->description, wanted->description));
    }
    return **found;
  }
  rejectOtherExtension(output, fmt::format("{} ({}), {} ({}, {})", PNG.description, PNG.extension,
                                           JPEG.description, JPEG.extension, JPEG_OF_FOUR_LETTERS.extension));
  return wanted != nullptr ? *wanted : PNG;
}

bool hasOpacity(const FileKind& kind) {
  return &kind == &PNG;
}

void writePicture(const Picture& picture, const FileKind& kind, const std::string& output) {
  const bool isPng = &kind == &PNG;
  if (isStandardOutput(output)) {
    const std::vector<std::uint8_t> bytes = isPng ? picture.toPng() : picture.toJpeg();
    ResultStream out;
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.finish();
  } else if (isPng) {
    picture.writePng(output);
  } else {
    picture.writeJpeg(output);
  }
}

}  // namespace vemo
