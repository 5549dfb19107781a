#include "geometry/AdoptedArray.h"
#include "vemoview/import/Failure.h"
#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/xml/OptionalValues.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Image.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/Overlays.h>

#include <vtkUnsignedCharArray.h>

#include <cstdint>
#include <utility>

namespace vemo {

namespace {

constexpr int DEFAULT_COMPONENTS = 3;
constexpr int MAX_COMPONENTS = 4;

struct PixelSize {
  int width;
  int height;
  int components;

  bool isPossible() const {
    return width > 0 && height > 0 && components > 0 && components <= MAX_COMPONENTS;
  }
  std::uint64_t bytes() const {
    return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) *
           static_cast<std::uint64_t>(components);
  }
  std::string text() const {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels with " +
           std::to_string(components) + " components";
  }
};

[[noreturn]] void fail(const std::string& message, const std::string& entry) {
  failAt<IOException>(message + ".<br>Your file may be corrupt.", entry);
}

/// An entry that is not there is the reader's affair.
void checkSize(const PixelSize& size, int bytes, const std::string& entry) {
  if (!size.isPossible()) {
    fail("An image cannot have " + size.text(), entry);
  }
  if (bytes >= 0 && static_cast<std::uint64_t>(bytes) != size.bytes()) {
    fail("Entry '" + entry + "' has " + std::to_string(bytes) + " bytes, but an image of " + size.text() +
             " needs " + std::to_string(size.bytes()),
         entry);
  }
}

}  // namespace

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

void Image::setPlace(const Vector<3, double>& corner, const Vector<3, double>& xAxis,
                     const Vector<3, double>& yAxis) {
  _corner = corner;
  _xAxis = xAxis;
  _yAxis = yAxis;
}

void Image::read(const QxElement& element, SceneFileReader* reader) {
  checkVersionOfExtra(element, reader);
  GraphicsItem::read(element, reader);
  const OptionalValues values(element, reader);
  _space = static_cast<lum::CoordinateSpace>(
      values.getRow(XML_ATTRIB_COORDINATE_SYSTEM, COORDINATE_SYSTEMS, static_cast<int>(_space)));
  _opacity = values.getDouble(XML_ATTRIB_OPACITY, _opacity);
  readPlace(values);
  if (const std::string* const entry = element.findAttribute(XML_ATTRIB_PIXELS)) {
    VEMO_REQUIRE(reader, "SceneFileReadable can't be NULL for this object");
    readPixels(element, *entry, *reader);
  }
}

void Image::readPixels(const QxElement& element, const std::string& entry, SceneFileReader& reader) {
  const PixelSize size{element.getInt(XML_ATTRIB_WIDTH), element.getInt(XML_ATTRIB_HEIGHT),
                       element.getInt(XML_ATTRIB_COMPONENTS, DEFAULT_COMPONENTS)};
  checkSize(size, reader.getArchive().getSize(entry), entry);
  ArrayOwner<unsigned char> bytes(reader.readEntry(entry));
  auto pixels = vtkSmartPointer<vtkUnsignedCharArray>::New();
  pixels->SetNumberOfComponents(size.components);
  const vtkIdType count = bytes.count();
  geometry::adoptBlock(*pixels, bytes.releaseBlock(), count);
  setPixels(pixels, size.width, size.height);
}

void Image::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                            const std::string& /*parentName*/) const {
  if (!_pixels) {
    VEMO_LOG_WARNING("The image \"" << getName() << "\" has no pixels and is left out");
    return;
  }
  const bool inWindow = _space == lum::CoordinateSpace::WINDOW;
  auto& drawable = drawableOf<lum::ImageDrawable>(
      *this, inWindow ? shared.sceneNode->getForegroundCanvas().getDrawableCollection() : collection);
  addVisibilityAttrib(drawable);
  drawable.getPositionAttributes().setPosition(_corner, false);
  // What is hidden today may be shown tomorrow.
  drawable.getColorAttributes()->setOpacity(hasHiddenItems() ? _opacity : _opacity * getVisibility(), false);
  lum::ImageAttributes& attributes = drawable.getImageAttributes();
  attributes.setCoordinateSpace(_space);
  attributes.setXAxis(_xAxis);
  attributes.setYAxis(_yAxis);
  attributes.setPixels(_pixels, _width, _height);
}

}  // namespace vemo
