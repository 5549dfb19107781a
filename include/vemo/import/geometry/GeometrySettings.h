#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/Export.h>
#include <vemo/import/reading/Readable.h>
#include <vemo/import/xml/Color.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace vemo {

/// How a piece of geometry is drawn. Its members have the values of items made
/// in code; see GeometryItem::read for what an element without them means.
struct VEMO_IMPORT_EXPORT GeometrySettings {
  static const KeyTable<GeometrySettings> KEYS;
  /// What the ledger calls those that geometries share, all together. No attribute has such a name.
  static constexpr std::string_view ALL = "*";

  /// Coefficients of 0 to 1, and the exponent of highlights.
  double ambient = 0.0;
  double diffuse = 1.0;
  double specular = 0.0;
  double specularPower = 1.0;
  /// In pixels.
  double pointSize = 1.0;
  // How the size of points follows data: see lum::PointScaleAttributes.
  /// Both ranges run from x to y; z is kept, and not used. Null until set.
  std::unique_ptr<Vector<3, double>> pointScaleScalarRange;
  std::unique_ptr<Vector<3, double>> pointScaleScalarMapTo;
  std::string pointScaleScalarName;
  int pointScaleMode = 0;
  /// Which ends of the two, of which findings say that they could not be read.
  std::array<bool, 2> unknownScaleRange{};
  std::array<bool, 2> unknownScaleSizes{};
  /// Whether findings say that a coefficient or the exponent could not be read.
  bool isLightingUnknown = false;
  /// Anything but 0: sizes are in pixels, and not in model units.
  int pointScalePixelSize = 1;
  /// In pixels.
  float lineWidth = 1.0F;
  Color faceColor{255, 255, 255, 255};
  Color lineColor{0, 0, 0, 255};
  bool showFaces = true;
  bool showEdges = false;
  bool smoothShading = true;
  bool contour = false;
  bool ignoreClip = false;

  /// Whether any coefficient is above 0. Files without lighting would show
  /// nothing: the renderer then uses its own.
  bool hasLighting() const;
  /// Whether any setting of point scaling was set.
  bool hasPointScale() const;
};

}  // namespace vemo
