#include "vemoview/import/Colormap.h"

#include "vemoview/import/QxElement.h"

#include <vtkLogLookupTable.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <iterator>

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
  values.reserve(4 * _colors.size());
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
  vtkNew<vtkUnsignedCharArray> bytes;
  bytes->SetNumberOfComponents(4);
  for (const Color& color : _colors) {
    const unsigned char channels[] = {color.r, color.g, color.b, color.a};
    bytes->InsertNextTypedTuple(channels);
  }
  vtkSmartPointer<vtkLookupTable> table;
  if (_log10) {
    table = vtkSmartPointer<vtkLogLookupTable>::New();
  } else {
    table = vtkSmartPointer<vtkLookupTable>::New();
  }
  table->SetRange(_range.data());
  table->SetTable(bytes);
  // VTK numbers the ramps in the same way.
  table->SetRamp(static_cast<int>(rampMode()));
  table->SetNumberOfTableValues(bytes->GetNumberOfTuples());
  return table;
}

void Colormap::applyTo(lum::ScalarAttributes& attributes) const {
  fill(attributes.getColorLookupTable());
  if (lum::DataArrayAttributes* const dataArray = attributes.hasDataArray()) {
    dataArray->setRange(_range);
    dataArray->setDataArrayPresentationName(_title);
  }
}
