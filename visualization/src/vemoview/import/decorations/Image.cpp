#include "vemoview/import/Failure.h"
#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/decorations/Image.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>

#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vemo {

namespace {

constexpr int MAX_COMPONENTS = 4;

bool isPossible(const Image::PixelSource& source) {
  return source.width > 0 && source.height > 0 && source.components > 0 &&
         source.components <= MAX_COMPONENTS;
}

std::uint64_t byteCount(const Image::PixelSource& source) {
  return static_cast<std::uint64_t>(source.width) * static_cast<std::uint64_t>(source.height) *
         static_cast<std::uint64_t>(source.components);
}

std::string describe(const Image::PixelSource& source) {
  return std::to_string(source.width) + " x " + std::to_string(source.height) + " pixels with " +
         std::to_string(source.components) + " components";
}

[[noreturn]] void fail(const std::string& message, const std::string& entry) {
  failAt<IOException>(message + ".<br>Your file may be corrupt.", entry);
}

/// A missing entry is reported by reading it.
void checkSize(const Image::PixelSource& source, int bytes) {
  if (!isPossible(source)) {
    fail("An image cannot have " + describe(source), *source.entry);
  }
  if (bytes >= 0 && static_cast<std::uint64_t>(bytes) != byteCount(source)) {
    fail("Entry '" + *source.entry + "' has " + std::to_string(bytes) + " bytes, but an image of " +
             describe(source) + " needs " + std::to_string(byteCount(source)),
         *source.entry);
  }
}

}  // namespace

const KeyTable<Image> Image::KEYS(
    {
        key::ifPresent<&Image::_space>(XML_ATTRIB_SPACE,
                                       "what the corners are given in: fractions of the window's width and "
                                       "height, or model coordinates")
            .named(COORDINATE_SYSTEMS)
            .defaultingTo("`WINDOW` in `image2d`, `MODEL` in `image3d`"),
        key::ifPresent<&Image::_opacity>("opacity", "from 0 to 1; multiplied by the visibility")
            .inRange(0, 1),
    },
    OnBadValue::WARN);

const KeyTable<Image::PixelSource> Image::PixelSource::KEYS({
    key::always<&Image::PixelSource::entry>(
        XML_ATTRIB_PIXELS,
        "bytes, row by row from the bottom of the picture to its top, each row from left to right, "
        "`components` bytes a pixel, without gaps"),
    key::always<&Image::PixelSource::width>("width", "pixels in a row"),
    key::always<&Image::PixelSource::height>(
        "height", "rows. An entry of another size than width x height x components is an error"),
    key::ifPresent<&Image::PixelSource::components>(
        "components", "1 grey, 2 grey and alpha, 3 red, green, blue, 4 these and alpha")
        .ignoredIfBad(),
});

Image::Image(std::string name, lum::CoordinateSpace space) : GraphicsItem(std::move(name)), _space(space) {}
Image::~Image() = default;

vtkUnsignedCharArray* Image::getPixels() const {
  return _pixels;
}

void Image::setPixels(vtkUnsignedCharArray* pixels, int width, int height) {
  _pixels = pixels;
  _width = width;
  _height = height;
}

void Image::setQuad(const Vector<3, double>& corner, const Vector<3, double>& xAxis,
                    const Vector<3, double>& yAxis) {
  _corner = corner;
  _xAxis = xAxis;
  _yAxis = yAxis;
}

void Image::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement<GraphicsItem>(*this, element, reader);
  readQuad(element, reader);
  // The size of pixels that do not exist does not matter, however it is written.
  if (element.findAttribute(PixelSource::XML_ATTRIB_PIXELS) != nullptr) {
    VEMO_REQUIRE(reader, "SceneFileReadable can't be NULL for this object");
    PixelSource source;
    if (PixelSource::KEYS.read(source, element, reader)) {
      const ReadingContext::AttributeScope scope(reader, PixelSource::XML_ATTRIB_PIXELS);
      readPixels(source, *reader);
    }
  } else {
    PixelSource::KEYS.markRead(element);
  }
}

void Image::readPixels(const PixelSource& source, SceneFileReader& reader) {
  checkSize(source, reader.getArchive().getSize(*source.entry));
  setPixels(reader.getDecoded().getPixels(*source.entry, source.components), source.width, source.height);
}

void Image::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                            const std::string& /*parentName*/) const {
  if (!_pixels) {
    report(shared.context, FindingCode::IMAGE_WITHOUT_PIXELS,
           "The image " + ReadingContext::quoted(getName()) + " has no pixels and is left out");
    return;
  }
  const bool inWindow = isInWindow();
  auto& drawable = addDrawable<lum::ImageDrawable>(
      getName(), inWindow ? shared.sceneNode->getForegroundCanvas().getDrawableCollection() : collection);
  addVisibilityAttrib(drawable, inWindow ? shared.isHidden : shared.hidesItemsIndividually);
  drawable.getPositionAttributes().setPosition(_corner, false);
  // A host may show a hidden item again.
  const double visibility = hasHiddenItems() ? 1.0 : std::min(getVisibility(), 1.0);
  drawable.getColorAttributes()->setOpacity(_opacity * visibility, false);
  lum::ImageAttributes& attributes = drawable.getImageAttributes();
  attributes.setCoordinateSpace(_space);
  attributes.setXAxis(_xAxis);
  attributes.setYAxis(_yAxis);
  attributes.setPixels(_pixels, _width, _height);
}

}  // namespace vemo
