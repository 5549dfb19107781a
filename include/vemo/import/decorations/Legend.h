#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/decorations/Font.h>
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/scenegraph/attributes/LegendAttributes.h>

#include <string>

namespace vemo {

class Colormap;

/// The colour bar of an assembly, with a title and numbers.
class VEMO_IMPORT_EXPORT Legend : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "legend";
  /// The orientations, in the order of lum::LegendOrientation.
  static inline const std::string ORIENTATIONS[] = {"VERTICAL", "HORIZONTAL", ""};
  static constexpr int MAX_LABELS = 64;
  static const KeyTable<Legend> KEYS;

  /// In fractions of the window's width and height; the position is that of the
  /// lower left corner.
  struct Rectangle {
    static const KeyTable<Rectangle> KEYS;

    Vector<2, double> position;
    Vector<2, double> size;
  };

  explicit Legend(std::string name);
  ~Legend() override;

  /// Values that cannot be read keep their defaults, with a warning.
  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Adds the legend, named like itself or else its assembly, with the colours of
  /// the colormap that it names in the assembly, or else that of the shared
  /// record. Nothing is added without a colormap.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  const Vector<2, double>& getPosition() const { return _rectangle.position; }
  const Vector<2, double>& getSize() const { return _rectangle.size; }
  void setRectangle(const Vector<2, double>& position, const Vector<2, double>& size);

  /// Empty for the title of the colormap.
  void setTitle(const std::string& title) { _title = title; }
  /// A colormap of the assembly; empty for the one that colours the assembly.
  void setColormapName(const std::string& name) { _colormapName = name; }
  /// Does not change position and size.
  void setOrientation(lum::LegendOrientation orientation) { _orientation = orientation; }
  /// From 0 to MAX_LABELS; throws InternalError for another number.
  void setLabelCount(int count);
  /// One conversion of C's `printf` for a double, with text around it; throws
  /// InternalError for any other text.
  void setNumberFormat(const std::string& format);
  /// The height of a line as a fraction of the window's height; 0 lets it fit.
  void setTextHeight(double height) { _textHeight = height; }
  void setFont(const Font& font) { _font = font; }

 private:
  const Colormap* chooseColormap(const SharedBySiblings& shared) const;
  /// Of the legend of that assembly, unless it shows the colormap that it names and that colours the
  /// assembly.
  void reportChoice(const Colormap& chosen, const SharedBySiblings& shared,
                    const std::string& assemblyName) const;
  void applyTo(lum::LegendAttributes& attributes, const Colormap& colormap) const;

  std::string _title;
  std::string _colormapName;
  lum::LegendOrientation _orientation = lum::LegendOrientation::VERTICAL;
  Rectangle _rectangle;
  int _labelCount = 5;
  std::string _format;
  double _textHeight = 0.0;
  Font _font;
};

}  // namespace vemo
