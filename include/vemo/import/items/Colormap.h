#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/Color.h>
#include <vemo/import/SceneItem.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>

#include <vtkSmartPointer.h>

#include <string>
#include <vector>

class vtkLookupTable;

namespace vemo {

/// A table of colours for a range of values.
class VEMO_IMPORT_EXPORT Colormap : public SceneItem {
 public:
  static inline const std::string XML_ENTITY = "colormap";

  explicit Colormap(const std::string& name = {});
  ~Colormap() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// The first one is for the low end of the range.
  const std::vector<Color>& getColors() const { return _colors; }

  /// What a reader is told that the colours stand for.
  const std::string& getTitle() const { return _title; }

  /// Writes colours, range, scale and ramp into the table.
  void fill(lum::ColorLookupTable& table) const;

  /// VTK's form of the colormap, for who draws items with VTK.
  vtkSmartPointer<vtkLookupTable> makeLookupTable() const;

  /// Colours by this colormap what the attributes colour by data, and tells
  /// their data array its range and title.
  void applyTo(lum::ScalarAttributes& attributes) const;

 protected:
  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  static inline const std::string XML_ATTRIB_MIN = "min";
  static inline const std::string XML_ATTRIB_MAX = "max";
  static inline const std::string XML_ATTRIB_LOG10 = "log10";
  static inline const std::string XML_ATTRIB_RAMP = "ramp";
  static inline const std::string XML_ATTRIB_TITLE = "title";
  static inline const std::string RAMP_SCURVE = "scurve";
  static inline const std::string RAMP_SQRT = "sqrt";

  lum::RampMode rampMode() const;

  std::vector<Color> _colors;
  Vector<2, double> _range;
  bool _log10 = false;
  std::string _ramp;
  std::string _title;
};

}  // namespace vemo
