#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// How a surface reflects light: coefficients of 0 to 1, and the exponent of
/// its highlights.
class VEMO_SCENEGRAPH_EXPORT MaterialAttributes final : public Attributes {
  LUM_NODE(MaterialAttributes, Attributes)
  LUM_VALUE(double, Ambient, _ambient, 0.0)
  LUM_VALUE(double, Diffuse, _diffuse, 1.0)
  LUM_VALUE(double, Specular, _specular, 0.0)
  LUM_VALUE(double, SpecularPower, _specularPower, 1.0)
};

}  // namespace lum
