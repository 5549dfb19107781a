#pragma once

#include <vemo/scenegraph/attributes/Attributes.h>

namespace lum {

/// The labels and the size of a triad of axes.
class VEMO_SCENEGRAPH_EXPORT TriadAttributes final : public Attributes {
  LUM_NODE(TriadAttributes, Attributes)
  /// Whether the triad keeps its size on the screen whatever the camera does:
  /// its axes are three times as long as its labels are high. Otherwise they
  /// are 1.5 units long.
  LUM_VALUE(bool, UseConstantPixelSize, _useConstantPixelSize, true)
  /// As a fraction of the window's height; limited to 0.16 of the canvas's height.
  LUM_VALUE(double, AxisLabelHeight, _axisLabelHeight, 0.05)
  LUM_VALUE(std::string, XAxisLabelText, _xAxisLabelText, "X")
  LUM_VALUE(std::string, YAxisLabelText, _yAxisLabelText, "Y")
  LUM_VALUE(std::string, ZAxisLabelText, _zAxisLabelText, "Z")
};

}  // namespace lum
