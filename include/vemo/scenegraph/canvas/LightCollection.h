#pragma once

#include <vemo/scenegraph/CollectionOf.h>
#include <vemo/scenegraph/canvas/Light.h>

namespace lum {

class VEMO_SCENEGRAPH_EXPORT LightCollection final : public CollectionOf<Light> {
  LUM_NODE(LightCollection, CollectionOf<Light>)
};

}  // namespace lum
