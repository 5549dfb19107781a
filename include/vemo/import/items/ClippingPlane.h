#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/reading/Readable.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkPlane;
namespace lum {
class Plane;
}

namespace vemo {

/// A plane that cuts the whole scene; the side that its normal points to is kept.
class VEMO_IMPORT_EXPORT ClippingPlane : public Readable {
 public:
  static inline const std::string XML_ENTITY = "clip";
  static const KeyTable<ClippingPlane> KEYS;

  ClippingPlane();
  ~ClippingPlane() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  void convertTo(lum::Plane& plane) const;

  /// For mappers that clip by it; created by the first call, updated by each.
  vtkPlane* getPlane();

 private:
  Vector<3, double> _origin{};
  Vector<3, double> _normal{0.0, 0.0, 1.0};
  vtkSmartPointer<vtkPlane> _plane;
};

}  // namespace vemo
