#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/GraphicsItem.h>
#include <vemo/scenegraph/attributes/CoordinateSpace.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkUnsignedCharArray;

namespace vemo {

class OptionalValues;

/// A picture in the scene: its pixels, and where its corners stand.
class VEMO_IMPORT_EXPORT Image : public GraphicsItem {
 public:
  /// The words stand in the order of lum::CoordinateSpace.
  static inline const std::string COORDINATE_SYSTEMS[] = {"WINDOW", "MODEL", ""};

  ~Image() override;

  /// Needs a reader when the element has pixels, and throws InternalError
  /// without one.
  /// @throws IOException for pixels that are not there, or not of the size
  /// stated
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the picture to the foreground canvas when it stands in the window, to
  /// the collection when it stands in the model. Nothing is added without
  /// pixels.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// See lum::ImageAttributes::setPixels. The array is shared, not copied.
  void setPixels(vtkUnsignedCharArray* pixels, int width, int height);
  vtkUnsignedCharArray* getPixels() const;

  void setCoordinateSystem(lum::CoordinateSpace space) { _space = space; }
  /// From 0 (not seen) to 1. The item's visibility is a factor of it.
  void setOpacity(double opacity) { _opacity = opacity; }

 protected:
  /// @param space where the picture stands unless its element says otherwise
  Image(std::string name, lum::CoordinateSpace space);

  /// The lower left corner, and from there to the lower right and the upper
  /// left one.
  void setPlace(const Vector<3, double>& corner, const Vector<3, double>& xAxis,
                const Vector<3, double>& yAxis);

 private:
  static inline const std::string XML_ATTRIB_PIXELS = "pixels";
  static inline const std::string XML_ATTRIB_WIDTH = "width";
  static inline const std::string XML_ATTRIB_HEIGHT = "height";
  static inline const std::string XML_ATTRIB_COMPONENTS = "components";
  static inline const std::string XML_ATTRIB_COORDINATE_SYSTEM = "coordinateSystem";
  static inline const std::string XML_ATTRIB_OPACITY = "opacity";

  /// Reads where the picture stands.
  virtual void readPlace(const OptionalValues& values) = 0;
  void readPixels(const QxElement& element, const std::string& entry, SceneFileReader& reader);

  lum::CoordinateSpace _space;
  Vector<3, double> _corner{};
  Vector<3, double> _xAxis{};
  Vector<3, double> _yAxis{};
  double _opacity = 1.0;
  int _width = 0;
  int _height = 0;
  vtkSmartPointer<vtkUnsignedCharArray> _pixels;
};

}  // namespace vemo
