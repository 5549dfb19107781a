#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/scenegraph/attributes/CoordinateSpace.h>

#include <vtkSmartPointer.h>

#include <optional>
#include <string>

class vtkUnsignedCharArray;

namespace vemo {

/// A picture in the scene: its pixels, and the positions of its corners.
class VEMO_IMPORT_EXPORT Image : public GraphicsItem {
 public:
  /// In the order of lum::CoordinateSpace.
  static inline const std::string XML_ATTRIB_SPACE = "coordinateSystem";
  static inline const std::string COORDINATE_SYSTEMS[] = {"WINDOW", "MODEL", ""};
  static const KeyTable<Image> KEYS;

  /// The keys for an element's pixels.
  struct PixelSource {
    static inline const std::string XML_ATTRIB_PIXELS = "pixels";
    static const KeyTable<PixelSource> KEYS;

    std::optional<std::string> entry;
    int width = 0;
    int height = 0;
    int components = 3;
  };

  ~Image() override;

  /// Needs a reader when the element has pixels, and throws InternalError
  /// without one.
  /// @throws IOException for pixels that are missing or not of the stated size
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the picture to the foreground canvas if it is positioned in the
  /// window, to the collection if in the model. Nothing is added without pixels.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// See lum::ImageAttributes::setPixels. The array is shared, not copied.
  void setPixels(vtkUnsignedCharArray* pixels, int width, int height);
  vtkUnsignedCharArray* getPixels() const;

  void setCoordinateSystem(lum::CoordinateSpace space) { _space = space; }
  /// From 0 (invisible) to 1. It is multiplied by the item's visibility.
  void setOpacity(double opacity) { _opacity = opacity; }

 protected:
  /// @param space of the corners, unless the element states another
  Image(std::string name, lum::CoordinateSpace space);

  /// The lower left corner, and the vectors from there to the lower right and
  /// upper left corners.
  void setQuad(const Vector<3, double>& corner, const Vector<3, double>& xAxis,
               const Vector<3, double>& yAxis);

  /// Whether the corners are given in the window, where there is no depth.
  bool isInWindow() const { return _space == lum::CoordinateSpace::WINDOW; }

  VisibilityUse getVisibilityUse() const override { return VisibilityUse::OPACITY; }

 private:
  /// Reads the position of the picture.
  virtual void readQuad(const QxElement& element, SceneFileReader* reader) = 0;
  void readPixels(const PixelSource& source, SceneFileReader& reader);

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
