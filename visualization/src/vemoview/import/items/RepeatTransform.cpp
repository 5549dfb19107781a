#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>

namespace vemo {

namespace {

constexpr const char* REPEAT_COUNT = "nRepeats";

/// One that is stated as 0 means nothing else.
void reportNoCount(bool isStated, HeldFindings& held, SceneFileReader& reader) {
  const std::string text =
      held.describe({REPEAT_COUNT}, "nothing is repeated",
                    isStated ? "" : "The number of repeats is missing: nothing is repeated");
  if (!text.empty()) {
    reader.report(FindingCode::TRANSFORM_UNUSABLE, text, {}, isStated ? REPEAT_COUNT : "");
  }
}

}  // namespace

const KeyTable<RepeatTransform> RepeatTransform::KEYS({
    key::always<&RepeatTransform::_repeatCount>(REPEAT_COUNT, "how often it is shown; 1 and less is once"),
});

RepeatTransform::~RepeatTransform() = default;

void RepeatTransform::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {REPEAT_COUNT});
  KEYS.readElement(*this, element, reader);
  if (reader != nullptr && _repeatCount == 0) {
    reportNoCount(element.findAttribute(REPEAT_COUNT) != nullptr, held, *reader);
  }
  held.release();
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
