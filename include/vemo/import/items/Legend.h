#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/GraphicsItem.h>
#include <vemo/import/items/Font.h>
#include <vemo/scenegraph/attributes/LegendAttributes.h>

#include <string>

namespace vemo {

class Colormap;
class OptionalValues;

/// What the colours of an assembly mean: a colour bar with a title and numbers.
class VEMO_IMPORT_EXPORT Legend : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "legend";
  /// The orientations, in the order of lum::LegendOrientation.
  static inline const std::string ORIENTATIONS[] = {"VERTICAL", "HORIZONTAL", ""};
  static constexpr int MAX_LABELS = 64;

  explicit Legend(std::string name);
  ~Legend() override;

  /// Values that cannot be read are warned of, and stay what they are by
  /// default.
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the legend, under its name or else that of its assembly, with the
  /// colours of its colormap. Nothing is added when there is no colormap in the
  /// shared record, nor one of the legend's in the assembly that it names.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  /// As fractions of the window's width and height; the position is that of the
  /// lower left corner.
  const Vector<2, double>& getPosition() const { return _position; }
  const Vector<2, double>& getSize() const { return _size; }
  void setPlace(const Vector<2, double>& position, const Vector<2, double>& size);

  /// Empty: the title of the colormap.
  void setTitle(const std::string& title) { _title = title; }
  /// Of the assembly; empty: the one that colours the assembly.
  void setColormapName(const std::string& name) { _colormapName = name; }

 private:
  static inline const std::string XML_ATTRIB_TITLE = "title";
  static inline const std::string XML_ATTRIB_COLORMAP = "colormap";
  static inline const std::string XML_ATTRIB_ORIENTATION = "orientation";
  static inline const std::string XML_ATTRIB_LABELS = "numberOfLabels";
  static inline const std::string XML_ATTRIB_FORMAT = "numberFormat";
  static inline const std::string XML_ATTRIB_TEXT_HEIGHT = "textHeight";
  static inline const std::string XML_POSITION = "position";
  static inline const std::string XML_SIZE = "size";

  void readFormat(const OptionalValues& values);
  const Colormap* chooseColormap(const SharedBySiblings& shared, const std::string& assemblyName) const;
  void applyTo(lum::LegendAttributes& attributes, const Colormap& colormap) const;

  std::string _title;
  std::string _colormapName;
  lum::LegendOrientation _orientation = lum::LegendOrientation::VERTICAL;
  Vector<2, double> _position;
  Vector<2, double> _size;
  int _labelCount = 5;
  std::string _format;
  double _textHeight = 0.0;
  Font _font;
};

}  // namespace vemo
