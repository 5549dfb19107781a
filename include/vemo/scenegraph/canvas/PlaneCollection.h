#pragma once

#include <vemo/scenegraph/CollectionOf.h>
#include <vemo/scenegraph/canvas/Plane.h>

namespace lum {

class VEMO_SCENEGRAPH_EXPORT PlaneCollection final : public CollectionOf<Plane> {
  LUM_NODE(PlaneCollection, CollectionOf<Plane>)
};

}  // namespace lum
