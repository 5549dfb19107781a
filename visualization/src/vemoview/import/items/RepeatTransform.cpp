#include "vemoview/import/reading/KeyTable.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>

namespace vemo {

const KeyTable<RepeatTransform> RepeatTransform::KEYS({
    key::always<&RepeatTransform::_repeatCount>("nRepeats", "how often it is shown; 1 and less is once"),
});

RepeatTransform::~RepeatTransform() = default;

void RepeatTransform::read(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement(*this, element, reader);
  if (reader != nullptr && element.findAttribute("nRepeats") == nullptr) {
    reader->report(FindingCode::TRANSFORM_UNUSABLE, "The number of repeats is missing: nothing is repeated");
  }
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
