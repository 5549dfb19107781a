#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/items/SceneItem.h>
#include <vemo/import/xml/Color.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

#include <vtkSmartPointer.h>

#include <array>
#include <string>
#include <vector>

class vtkLookupTable;

namespace vemo {

/// A table of colours for a range of values.
class VEMO_IMPORT_EXPORT Colormap : public SceneItem {
 public:
  static inline const std::string XML_ENTITY = "colormap";
  /// The ramps, in the order of lum::RampMode.
  static inline const std::string RAMPS[] = {"linear", "scurve", "sqrt", ""};
  static const KeyTable<Colormap> KEYS;

  explicit Colormap(const std::string& name = {});
  ~Colormap() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// The first colour is for the low end of the range.
  const std::vector<Color>& getColors() const { return _colors; }

  /// The name of the data for display.
  const std::string& getTitle() const { return _title; }

  /// Writes colours, range, scale and ramp into the table.
  void fill(lum::ColorLookupTable& table) const;

  /// Exactly what the item holds, whether or not VTK can draw with it: a range may
  /// be empty, reversed, or without logarithms, and there may be no colours.
  vtkSmartPointer<vtkLookupTable> makeLookupTable() const;

  /// For drawing items with VTK: a table that shows what the converted scene shows.
  /// What the item holds is adjusted where it cannot be used (ColorTable.h), with a
  /// finding.
  vtkSmartPointer<vtkLookupTable> makeUsableLookupTable() const;

  /// Sets the colour table of the attributes, and the range and title of their
  /// data array.
  void applyTo(lum::ScalarAttributes& attributes) const;

  /// An order in which colormaps that colour alike, and have the same title, are equal.
  bool precedes(const Colormap& other) const;

 protected:
  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  std::vector<Color> _colors;
  // Those of all tables.
  lum::SharedNumbers _colorValues;
  Vector<2, double> _range;
  bool _log10 = false;
  std::array<bool, 2> _areEndsUnknown{};
  lum::RampMode _ramp = lum::RampMode::LINEAR;
  std::string _title;
};

}  // namespace vemo
