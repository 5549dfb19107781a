#pragma once

#include <vemo/scenegraph/Node.h>

namespace lum {

/// How a drawable, with all that it owns, is moved, mirrored or repeated. What
/// it owns may have transforms of its own, which act first. Clipping planes are
/// applied to the result. A transform with values that are not finite changes
/// nothing. Through repeats within repeats nothing is shown more than 10,000
/// times.
class VEMO_SCENEGRAPH_EXPORT Transform : public Node {
 public:
  using Node::Node;

 protected:
  ~Transform() override = default;
};

}  // namespace lum
