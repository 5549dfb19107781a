#include "scenegraph/attributes/NumberFormat.h"
#include "vemoview/import/xml/OptionalValues.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Colormaps.h>
#include <vemo/import/items/Legend.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/Overlays.h>

#include <utility>

namespace vemo {

namespace {

struct Place {
  Vector<3, double> position;
  Vector<3, double> size;
};

const std::string DEFAULT_FORMAT = "%.4g";

/// At the right edge, or at the lower one.
Place defaultPlace(lum::LegendOrientation orientation) {
  return orientation == lum::LegendOrientation::VERTICAL ? Place{{0.85, 0.25, 0.0}, {0.12, 0.5, 0.0}}
                                                         : Place{{0.25, 0.03, 0.0}, {0.5, 0.12, 0.0}};
}

Vector<2, double> inWindow(const Vector<3, double>& vector) {
  return {vector[0], vector[1]};
}

}  // namespace

Legend::Legend(std::string name)
    : GraphicsItem(std::move(name)),
      _position(inWindow(defaultPlace(_orientation).position)),
      _size(inWindow(defaultPlace(_orientation).size)),
      _format(DEFAULT_FORMAT) {}
Legend::~Legend() = default;

void Legend::setPlace(const Vector<2, double>& position, const Vector<2, double>& size) {
  _position = position;
  _size = size;
}

void Legend::read(const QxElement& element, SceneFileReader* reader) {
  checkVersionOfExtra(element, reader);
  GraphicsItem::read(element, reader);
  const OptionalValues values(element, reader);
  _title = values.getString(XML_ATTRIB_TITLE, _title);
  _colormapName = values.getString(XML_ATTRIB_COLORMAP, _colormapName);
  _orientation = static_cast<lum::LegendOrientation>(values.getRow(XML_ATTRIB_ORIENTATION, ORIENTATIONS, 0));
  const Place place = defaultPlace(_orientation);
  setPlace(inWindow(values.getVector3(XML_POSITION, place.position)),
           inWindow(values.getVector3(XML_SIZE, place.size)));
  _labelCount = values.getInt(XML_ATTRIB_LABELS, _labelCount, 0, MAX_LABELS);
  _textHeight = values.getDouble(XML_ATTRIB_TEXT_HEIGHT, _textHeight);
  readFormat(values);
  values.getFont(_font);
}

void Legend::readFormat(const OptionalValues& values) {
  const std::string format = values.getString(XML_ATTRIB_FORMAT, _format);
  if (lum::isNumberFormat(format)) {
    _format = format;
  } else {
    values.warn(XML_ATTRIB_FORMAT, "it is not a format for one number, as \"" + DEFAULT_FORMAT + "\" is");
  }
}

const Colormap* Legend::chooseColormap(const SharedBySiblings& shared,
                                       const std::string& assemblyName) const {
  if (_colormapName.empty() || shared.assemblyColormaps == nullptr) {
    return shared.colormap;
  }
  const Colormap* const named = shared.assemblyColormaps->find(_colormapName);
  if (named == nullptr) {
    VEMO_LOG_WARNING("The legend of \"" << assemblyName << "\" names a colormap \"" << _colormapName
                                        << "\" that is not there");
  }
  return named != nullptr ? named : shared.colormap;
}

void Legend::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                             const std::string& parentName) const {
  const Colormap* const colormap = chooseColormap(shared, parentName);
  if (colormap == nullptr) {
    VEMO_LOG_WARNING("The legend of \"" << parentName << "\" has no colormap and is left out");
    return;
  }
  auto& drawable = collection.findOrCreate<lum::LegendDrawable>(getName().empty() ? parentName : getName());
  addVisibilityAttrib(drawable);
  drawable.getPositionAttributes().setPosition({_position[0], _position[1], 0.0}, false);
  applyTo(drawable.getLegendAttributes(), *colormap);
  _font.applyTo(drawable.getTextAttributes());
  drawable.getTextAttributes().setFontSize(_textHeight);
  colormap->fill(drawable.getColorLookupTable());
}

void Legend::applyTo(lum::LegendAttributes& attributes, const Colormap& colormap) const {
  attributes.setTitle(_title.empty() ? colormap.getTitle() : _title);
  attributes.setOrientation(_orientation);
  attributes.setSize(_size);
  attributes.setNumberOfLabels(_labelCount);
  attributes.setLabelFormat(_format);
}

}  // namespace vemo
