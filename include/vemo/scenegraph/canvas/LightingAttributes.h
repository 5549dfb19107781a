#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/canvas/LightCollection.h>

namespace lum {

/// The lights of a canvas. What they leave in the dark is filled by a further,
/// weak light at the viewer's position: a quarter of the mean of their colours
/// times intensities. Without any light, one of intensity 1 shines from there.
class VEMO_SCENEGRAPH_EXPORT LightingAttributes final : public Attributes {
  LUM_NODE(LightingAttributes, Attributes)
  LUM_OWNED(LightCollection, Lights, _lights)
};

}  // namespace lum
