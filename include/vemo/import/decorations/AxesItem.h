#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/import/xml/Color.h>

#include <vtkSmartPointer.h>

#include <array>
#include <string>

class vtkTextActor;

namespace vemo {

/// The triad in a corner of the window that shows how the model is turned.
class VEMO_IMPORT_EXPORT AxesItem : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "axes";
  static const KeyTable<AxesItem> KEYS;

  explicit AxesItem(std::string name);
  ~AxesItem() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the triad to the scene's orientation canvas. The scene's model canvas
  /// must have its camera already, which the triad turns with.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  void setAxes(const Vector<3, double>& x, const Vector<3, double>& y, const Vector<3, double>& z);
  const Vector<3, double>& getXAxis() const { return _xAxis; }
  const Vector<3, double>& getYAxis() const { return _yAxis; }
  const Vector<3, double>& getZAxis() const { return _zAxis; }

  void setTextColor(Color color) { _textColor = color; }

  /// The label of axis 0, 1 or 2 for drawing the triad with VTK, just beyond
  /// the end of the axis. Created by the first call, updated by each. Needs
  /// VTK's OpenGL module.
  vtkTextActor* getLabel(int axis);

 protected:
  /// The part of reading that all triads share.
  void readAxes(const QxElement& element, SceneFileReader* reader);

 private:
  Vector<3, double> _xAxis{1.0, 0.0, 0.0};
  Vector<3, double> _yAxis{0.0, 1.0, 0.0};
  Vector<3, double> _zAxis{0.0, 0.0, 1.0};
  Color _textColor{0, 0, 0, 255};
  std::array<vtkSmartPointer<vtkTextActor>, 3> _labels;
};

}  // namespace vemo
