#include <vemo/import/QxElement.h>
#include <vemo/import/items/CoordinateSystemItem.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <algorithm>
#include <utility>

namespace vemo {

namespace {

/// As a fraction of the window's height.
constexpr double LABEL_HEIGHT = 0.035;

}  // namespace

CoordinateSystemItem::CoordinateSystemItem(std::string name) : AxesItem(std::move(name)) {}
CoordinateSystemItem::~CoordinateSystemItem() = default;

void CoordinateSystemItem::read(const QxElement& element, SceneFileReader* reader) {
  checkVersion(element);
  AxesItem::read(element, reader);
  readImpl(element, reader);
}

void CoordinateSystemItem::readImpl(const QxElement& element, SceneFileReader* /*reader*/) {
  element.getVector3(XML_ORIGIN, _origin);
  std::ranges::transform(XML_ATTRIB_LABELS, _axesLabels.begin(), [&element](const std::string& attribute) {
    const std::string* const label = element.findAttribute(attribute);
    return label != nullptr ? *label : std::string();
  });
}

void CoordinateSystemItem::addToCollection(SharedBySiblings& /*shared*/, lum::DrawableCollection& collection,
                                           int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_INFO("***** CoordinateSystemItem::addToCollection is being added *****");
  auto& triad = collection.findOrCreate<lum::TriadDrawable>(getName());
  triad.getPositionAttributes().setPosition(_origin, false);
  addVisibilityAttrib(triad);

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
