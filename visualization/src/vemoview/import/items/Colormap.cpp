#include "vemoview/common/VtkForms.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/items/Colormap.h>

#include <vtkLookupTable.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace vemo {

namespace {

void replaceIfPresent(std::string& value, const QxElement& element, const std::string& attribute) {
  if (const std::string* text = element.findAttribute(attribute)) {
    value = *text;
  }
}

}  // namespace

Colormap::Colormap(const std::string& name) : SceneItem(name) {}
Colormap::~Colormap() = default;

void Colormap::read(const QxElement& element, SceneFileReader* reader) {
  checkVersion(element);
  SceneItem::read(element, reader);
  readImpl(element, reader);
}

void Colormap::readImpl(const QxElement& element, SceneFileReader* /*reader*/) {
  _range = {element.getDouble(XML_ATTRIB_MIN), element.getDouble(XML_ATTRIB_MAX)};
  _log10 = element.getBool(XML_ATTRIB_LOG10);
  replaceIfPresent(_ramp, element, XML_ATTRIB_RAMP);
  replaceIfPresent(_title, element, XML_ATTRIB_TITLE);
  // Every child is a colour, whatever its name.
  _colors.clear();
  std::ranges::transform(element.getChildren(), std::back_inserter(_colors),
                         [](const auto& child) { return Color::parse(child->getText()); });
}

lum::RampMode Colormap::rampMode() const {
  if (_ramp == RAMP_SCURVE) {
    return lum::RampMode::SCURVE;
  }
  return _ramp == RAMP_SQRT ? lum::RampMode::SQRT : lum::RampMode::LINEAR;
}

void Colormap::fill(lum::ColorLookupTable& table) const {
  std::vector<double> values;
  values.reserve(RGBA_CHANNELS * _colors.size());
  for (const Color& color : _colors) {
    for (const auto channel : {color.r, color.g, color.b, color.a}) {
      values.push_back(channel / 255.0);
    }
  }
  table.setColorValues(values);
  table.setNumColor(static_cast<std::int32_t>(_colors.size()));
  table.setColorSpace(lum::ColorSpace::RGBA);
  table.setScalarRange(_range);
  table.setScaleMode(_log10 ? lum::ScaleMode::LOG10 : lum::ScaleMode::LINEAR);
  table.setRampMode(rampMode());
}

vtkSmartPointer<vtkLookupTable> Colormap::makeLookupTable() const {
  std::vector<std::uint8_t> channels;
  channels.reserve(RGBA_CHANNELS * _colors.size());
  for (const Color& color : _colors) {
    channels.insert(channels.end(), {color.r, color.g, color.b, color.a});
  }
  auto table = makeVtkLookupTable(channels, _range, _log10);
  // VTK numbers the ramps in the same way.
  table->SetRamp(static_cast<int>(rampMode()));
  return table;
}

void Colormap::applyTo(lum::ScalarAttributes& attributes) const {
  fill(attributes.getColorLookupTable());
  if (lum::DataArrayAttributes* const dataArray = attributes.hasDataArray()) {
    dataArray->setRange(_range);
    dataArray->setDataArrayPresentationName(_title);
  }
}

}  // namespace vemo
