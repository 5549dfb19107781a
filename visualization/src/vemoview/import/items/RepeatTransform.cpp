#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/RepeatTransform.h>

namespace vemo {

RepeatTransform::~RepeatTransform() = default;

void RepeatTransform::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  _repeatCount = element.getInt(XML_ATTRIB_REPEATS);
}

void RepeatTransform::apply(lum::Transform& target) const {
  auto* const lumPeriodicRepeatTransform = dynamic_cast<lum::PeriodicRepeatTransform*>(&target);
  VEMO_REQUIRE(lumPeriodicRepeatTransform, "correct type must be enforced by makeLumTransform function");
  GeometryTransform::apply(target);
  lumPeriodicRepeatTransform->setNumRepeats(_repeatCount);
}

lum::Transform* RepeatTransform::makeLumTransform(lum::BaseAttributes& attributes) const {
  return ensureTransform<lum::PeriodicRepeatTransform>(attributes);
}

}  // namespace vemo
