#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/canvas/PlaneCollection.h>

namespace lum {

/// The planes that cut what a canvas shows.
class VEMO_SCENEGRAPH_EXPORT ClipPlanesAttributes final : public Attributes {
  LUM_NODE(ClipPlanesAttributes, Attributes)
  LUM_OWNED(PlaneCollection, ClippingPlanes, _clippingPlanes)
};

}  // namespace lum
