#include "vemoview/import/items/ItemDrawable.h"
#include "vemoview/import/items/SharedCollection.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/Vector.h>
#include <vemo/import/decorations/CoordinateSystemItem.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/attributes/OrientationAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <cmath>
#include <utility>

namespace vemo {

namespace {

/// As a fraction of the window's height.
constexpr double LABEL_HEIGHT = 0.035;

/// Of unit vectors. Files state axes with few digits.
constexpr double UNNOTICEABLE = 1e-3;

}  // namespace

const KeyTable<CoordinateSystemItem> CoordinateSystemItem::KEYS({
    key::ifPresent<&CoordinateSystemItem::_origin>("origin", "its position"),
    key::always<&CoordinateSystemItem::_axesLabels, 0>("xlabel", "the label of its x axis"),
    key::always<&CoordinateSystemItem::_axesLabels, 1>("ylabel", "of its y axis"),
    key::always<&CoordinateSystemItem::_axesLabels, 2>("zlabel", "of its z axis"),
});

CoordinateSystemItem::CoordinateSystemItem(std::string name) : AxesItem(std::move(name)) {}
CoordinateSystemItem::~CoordinateSystemItem() = default;

void CoordinateSystemItem::read(const QxElement& element, SceneFileReader* reader) {
  readAxes(element, reader);
  if (reader != nullptr) {
    reportUnusable(element, *reader);
  }
  readImpl(element, reader);
}

void CoordinateSystemItem::reportUnusable(const QxElement& element, SceneFileReader& reader) const {
  const ValueReader values(element, &reader, OnBadValue::FAIL);
  const bool isYUnknown = values.isUnknown("yaxis");
  const bool isZUnknown = values.isUnknown("zaxis");
  const bool isAnyZero = (!isYUnknown && getYAxis() == Vector3{}) || (!isZUnknown && getZAxis() == Vector3{});
  if ((isYUnknown || isZUnknown) && !isAnyZero) {
    return;
  }
  const auto y = normalized(getYAxis());
  const auto z = normalized(getZAxis());
  const auto x = normalized(cross(y, z));
  // It follows from the others.
  const bool isXStated = getXAxis() != CoordinateSystemItem("").getXAxis();
  if (isXStated && !values.isUnknown("xaxis") && length(normalized(getXAxis()) - x) > UNNOTICEABLE) {
    values.reportWithoutEffect("xaxis");
  }
  if (length(x) == 0.0) {
    reader.report(FindingCode::VALUE_IGNORED,
                  "The y and z axes are parallel, or one is zero: default axes are used");
  } else if (std::abs(dot(y, z)) > UNNOTICEABLE) {
    reader.report(FindingCode::VALUE_IGNORED,
                  "The y axis is not perpendicular to the z axis: the triad has a corrected one");
  }
}

void CoordinateSystemItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  KEYS.read(*this, element, reader);
}

/// Coordinate systems of one name share a triad if they are all shown, or all hidden.
lum::TriadDrawable& CoordinateSystemItem::openTriad(SharedBySiblings& shared,
                                                    lum::DrawableCollection& collection) const {
  auto* const first = collection.find<lum::TriadDrawable>(getName());
  if (first == nullptr) {
    return collection.findOrCreate<lum::TriadDrawable>(getName());
  }
  const bool isHidden = hasHiddenItems() || shared.hidesItemsIndividually;
  lum::TriadDrawable*& other = shared.otherTriads[first];
  auto* const earlier = isVisible(*first) != isHidden ? first : other;
  if (earlier == nullptr || isVisible(*earlier) == isHidden) {
    other = &addDrawable<lum::TriadDrawable>(getName(), collection);
    return *other;
  }
  reportReplaced(shared, *earlier, FindingCode::ITEM_REPLACED,
                 "The coordinate system " + ReadingContext::quoted(getName()) +
                     " is replaced by a later one of the same name");
  return *earlier;
}

void CoordinateSystemItem::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection,
                                           int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_INFO("***** CoordinateSystemItem::addToCollection is being added *****");
  lum::TriadDrawable& triad = openTriad(shared, collection);
  shared.origins[&triad] = getPlace();
  triad.getPositionAttributes().setPosition(_origin, false);
  addVisibilityAttrib(triad, shared.hidesItemsIndividually);

  lum::OrientationAttributes& orientation = triad.getOrientationAttributes();
  orientation.setForwardVector(getZAxis());
  orientation.setUpVector(getYAxis());

  lum::TriadAttributes& attributes = triad.getTriadAttributes();
  attributes.setAxisLabelHeight(LABEL_HEIGHT);
  attributes.setXAxisLabelText(_axesLabels[0]);
  attributes.setYAxisLabelText(_axesLabels[1]);
  attributes.setZAxisLabelText(_axesLabels[2]);
}

}  // namespace vemo
