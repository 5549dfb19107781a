#pragma once

#include <vemo/scenegraph/transforms/SimpleTransform.h>

namespace lum {

/// The drawable shown a number of times, each moved against the one before by
/// the simple transform; the first is not transformed. It is shown once for
/// counts of 1 and less, and when the simple transform does not move anything;
/// of more than 10,000 only the first 10,000 are shown.
class VEMO_SCENEGRAPH_EXPORT PeriodicRepeatTransform final : public SimpleTransform {
  LUM_NODE(PeriodicRepeatTransform, SimpleTransform)
  LUM_VALUE(std::int32_t, NumRepeats, _numRepeats, 1)
};

}  // namespace lum
