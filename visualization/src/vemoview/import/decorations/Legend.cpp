#include "base/Utf8.h"
#include "scenegraph/attributes/NumberFormat.h"
#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Colormaps.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>

#include <utility>

namespace vemo {

namespace {

constexpr const char* COLORMAP = "colormap";
const std::string DEFAULT_FORMAT = "%.4g";

/// At the right edge, or at the lower one.
Legend::Rectangle defaultRectangle(lum::LegendOrientation orientation) {
  return orientation == lum::LegendOrientation::VERTICAL ? Legend::Rectangle{{0.85, 0.25}, {0.12, 0.5}}
                                                         : Legend::Rectangle{{0.25, 0.03}, {0.5, 0.12}};
}

}  // namespace

const KeyTable<Legend> Legend::KEYS(
    {
        key::ifPresent<&Legend::_title>("title", "the heading of the bar; a blank one counts as absent")
            .defaultingTo("the colormap's"),
        key::ifPresent<&Legend::_colormapName>(COLORMAP, "the name of a colormap of the assembly")
            .defaultingTo("the one that colours the assembly"),
        key::always<&Legend::_orientation>("orientation", "orientation of the bar").named(ORIENTATIONS),
        key::ifPresent<&Legend::_labelCount>("numberOfLabels",
                                             "from 0 to 64; as many of them are shown as have room")
            .inRange(0, MAX_LABELS),
        key::ifPresent<&Legend::_textHeight>(
            "textHeight",
            "from 0 to 1: the height of a line of text as a fraction of the window's; 0: as it fits")
            .inRange(0, 1),
        key::ifPresent<&Legend::_format>(
            "numberFormat",
            "one conversion of C's `printf` for a number (`e`, `f`, `g`, `a`), with text around it")
            .allowedIf(lum::isNumberFormat, "not a format for one number, such as \"" + DEFAULT_FORMAT + '"'),
        key::ifPresent<&Legend::_font>(Font::XML_ENTITY, "see `font`").defaultingTo("black Arial"),
    },
    OnBadValue::WARN);

const KeyTable<Legend::Rectangle> Legend::Rectangle::KEYS(
    {
        key::ifPresent<&Legend::Rectangle::position>(
            "position", "the lower left corner, in fractions of the window's width and height")
            .defaultingTo("0.85, 0.25; horizontal 0.25, 0.03"),
        key::ifPresent<&Legend::Rectangle::size>(
            "size", "width and height of the whole legend, in fractions of the window's")
            .defaultingTo("0.12, 0.5; horizontal 0.5, 0.12"),
    },
    OnBadValue::WARN);

Legend::Legend(std::string name)
    : GraphicsItem(std::move(name)), _rectangle(defaultRectangle(_orientation)), _format(DEFAULT_FORMAT) {}
Legend::~Legend() = default;

void Legend::setRectangle(const Vector<2, double>& position, const Vector<2, double>& size) {
  _rectangle = {position, size};
}

void Legend::setLabelCount(int count) {
  VEMO_REQUIRE(count >= 0 && count <= MAX_LABELS, "A legend cannot have that many labels");
  _labelCount = count;
}

void Legend::setNumberFormat(const std::string& format) {
  VEMO_REQUIRE(lum::isNumberFormat(format), "Not a format for one number");
  _format = format;
}

void Legend::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement<GraphicsItem>(*this, element, reader);
  _rectangle = defaultRectangle(_orientation);
  Rectangle::KEYS.read(_rectangle, element, reader);
}

const Colormap* Legend::chooseColormap(const SharedBySiblings& shared) const {
  if (_colormapName.empty() || shared.assemblyColormaps == nullptr) {
    return shared.colormap;
  }
  const Colormap* const own = shared.assemblyColormaps->find(_colormapName);
  return own != nullptr ? own : shared.colormap;
}

void Legend::reportChoice(const Colormap& chosen, const SharedBySiblings& shared,
                          const std::string& assemblyName) const {
  const std::string legend = "The legend of " + ReadingContext::quoted(assemblyName) + ' ';
  if (!_colormapName.empty() && chosen.getName() != _colormapName) {
    const ReadingContext::AttributeScope scope(shared.context, COLORMAP);
    report(shared.context, FindingCode::COLORMAP_UNKNOWN,
           legend + "names a colormap " + ReadingContext::quoted(_colormapName) +
               " that its assembly does not have");
  }
  if (&chosen == shared.colormap) {
    return;
  }
  const std::string shown = legend + "shows the colormap " + ReadingContext::quoted(chosen.getName());
  const std::string colors = "the colours of " + ReadingContext::quoted(shared.colormap->getName());
  const bool isOuter = shared.coloringAssembly != nullptr &&
                       shared.assemblyColormaps->find(shared.colormap->getName()) != shared.colormap;
  report(shared.context, FindingCode::LEGEND_OF_OTHER_COLORS,
         isOuter ? shown + " of its own assembly, which has " + colors + " of the assembly " +
                       ReadingContext::quoted(*shared.coloringAssembly) + " around it"
                 : shown + ", but the assembly has " + colors);
}

void Legend::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int /*level*/,
                             const std::string& parentName) const {
  const Colormap* const colormap = chooseColormap(shared);
  if (colormap == nullptr) {
    report(shared.context, FindingCode::LEGEND_WITHOUT_COLORMAP,
           "The legend of " + ReadingContext::quoted(parentName) + " has no colormap and is left out");
    return;
  }
  reportChoice(*colormap, shared, parentName);
  auto& drawable = addDrawable<lum::LegendDrawable>(getName().empty() ? parentName : getName(), collection);
  addVisibilityAttrib(drawable, shared.isHidden);
  drawable.getPositionAttributes().setPosition({_rectangle.position[0], _rectangle.position[1], 0.0}, false);
  applyTo(drawable.getLegendAttributes(), *colormap);
  _font.applyTo(drawable.getTextAttributes());
  drawable.getTextAttributes().setFontSize(_textHeight);
  colormap->fill(drawable.getColorLookupTable());
  shared.usedColormaps[colormap] |= isBlank(_title);
}

void Legend::applyTo(lum::LegendAttributes& attributes, const Colormap& colormap) const {
  attributes.setTitle(isBlank(_title) ? colormap.getTitle() : _title);
  attributes.setOrientation(_orientation);
  attributes.setSize(_rectangle.size);
  attributes.setNumberOfLabels(_labelCount);
  attributes.setLabelFormat(_format);
}

}  // namespace vemo
