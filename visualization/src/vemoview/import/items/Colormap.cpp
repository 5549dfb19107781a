#include "vemoview/common/VtkForms.h"
#include "vemoview/import/reading/CopiedText.h"
#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/reading/ValueForms.h"
#include <vemo/import/items/Colormap.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/DataArrayAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

#include <vtkLookupTable.h>

#include <algorithm>
#include <bit>
#include <compare>
#include <cstdint>
#include <string_view>
#include <tuple>

namespace vemo {

const KeyTable<Colormap> Colormap::KEYS({
    key::always<&Colormap::_range, 0>("min", "the low end of the range"),
    key::always<&Colormap::_range, 1>("max", "the high end"),
    key::always<&Colormap::_log10>("log10", "maps the logarithm of the data"),
    key::ifPresent<&Colormap::_ramp>("ramp", "how the colours were made; kept").named(RAMPS),
    key::ifPresent<&Colormap::_title>("title", "the name of the data, for display"),
});

namespace {

/// In 0..1, four of each colour.
lum::SharedNumbers channelsOf(const std::vector<Color>& colors) {
  std::vector<double> channels;
  channels.reserve(RGBA_CHANNELS * colors.size());
  for (const Color& color : colors) {
    for (const auto channel : {color.r, color.g, color.b, color.a}) {
      channels.push_back(channel / 255.0);
    }
  }
  return channels;
}

}  // namespace

Colormap::Colormap(const std::string& name) : SceneItem(name) {}
Colormap::~Colormap() = default;

void Colormap::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.checkVersion(element, reader);
  SceneItem::read(element, reader);
  readImpl(element, reader);
}

void Colormap::readImpl(const QxElement& element, SceneFileReader* reader) {
  KEYS.read(*this, element, reader);
  const ValueReader values(element, reader, OnBadValue::FAIL);
  _areEndsUnknown = {values.isUnknown("min"), values.isUnknown("max")};
  if (_title.size() > MAX_COPIED_TEXT) {
    _title = beginOf(_title, MAX_COPIED_TEXT);
    reader->report(FindingCode::TEXT_CHANGED,
                   "The title is cut off after " + std::to_string(MAX_COPIED_TEXT) + " bytes", {}, "title");
  }
  // Every child is a colour, whatever its name.
  _colors.clear();
  for (const auto& child : element.getChildren()) {
    child->markRead();
    const ReadingContext::ItemScope scope(reader, pathName(*child), child->getPlace());
    const std::string& text = child->getText();
    _colors.push_back(Color::parse(text));
    const char* const flaw = child->hasReplacedText()    ? "only the last part of its text"
                             : !COLOR_FORM.matches(text) ? COLOR_FORM.flaw
                                                         : nullptr;
    if (flaw != nullptr) {
      reportUnreadable(reader, text, "a colour", flaw, valueText(_colors.back()), TEXT_NAME);
    }
  }
  _colorValues = channelsOf(_colors);
}

void Colormap::fill(lum::ColorLookupTable& table) const {
  table.setColorValues(_colorValues);
  table.setNumColor(static_cast<std::int32_t>(_colors.size()));
  table.setColorSpace(lum::ColorSpace::RGBA);
  table.setScalarRange(_range);
  table.setUnknownEnds(_areEndsUnknown);
  table.setScaleMode(_log10 ? lum::ScaleMode::LOG10 : lum::ScaleMode::LINEAR);
  table.setRampMode(_ramp);
}

vtkSmartPointer<vtkLookupTable> Colormap::makeLookupTable() const {
  std::vector<std::uint8_t> channels;
  channels.reserve(RGBA_CHANNELS * _colors.size());
  for (const Color& color : _colors) {
    channels.insert(channels.end(), {color.r, color.g, color.b, color.a});
  }
  auto table = makeVtkLookupTable(channels, _range, _log10);
  // VTK numbers the ramps in the same way.
  table->SetRamp(static_cast<int>(_ramp));
  return table;
}

vtkSmartPointer<vtkLookupTable> Colormap::makeUsableLookupTable() const {
  const lum::Ptr<lum::ColorLookupTable> table(
      new lum::ColorLookupTable(lum::ClassNameNodeInitializer(lum::ColorLookupTable::getClassName())));
  fill(*table);
  const auto [usable, changes] = makeUsable(*table);
  if (!changes.empty()) {
    reportFinding(FindingCode::COLORMAP_ADJUSTED,
                  "The colormap " + ReadingContext::quoted(getName()) + ' ' + changes);
  }
  return makeVtkLookupTable(usable);
}

bool Colormap::precedes(const Colormap& other) const {
  const auto settingsOf = [](const Colormap& colormap) {
    // NaNs have an order, too; zeros are equal.
    const auto bits = [](double end) { return std::bit_cast<std::uint64_t>(end + 0.0); };
    return std::tuple(bits(colormap._range[0]), bits(colormap._range[1]), colormap._log10, colormap._ramp,
                      std::string_view(colormap._title));
  };
  const auto order = settingsOf(*this) <=> settingsOf(other);
  return order != 0 ? order < 0 : std::ranges::lexicographical_compare(_colors, other._colors);
}

void Colormap::applyTo(lum::ScalarAttributes& attributes) const {
  fill(attributes.getColorLookupTable());
  if (lum::DataArrayAttributes* const dataArray = attributes.hasDataArray()) {
    dataArray->setRange(_range);
    dataArray->setDataArrayPresentationName(_title);
  }
}

}  // namespace vemo
