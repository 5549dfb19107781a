#pragma once

#include <vemo/import/items/GraphicsItem.h>
#include <vemo/import/xml/Color.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>

#include <string>

namespace vemo {

/// A background that runs from one colour to another.
class VEMO_IMPORT_EXPORT Gradient : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "gradient";
  /// The modes, in the order of lum::BackgroundColorModes.
  static inline const std::string MODES[] = {
      "SOLID", "TOP_BOTTOM", "BOTTOM_TOP", "LEFT_RIGHT", "RIGHT_LEFT", "RADIAL", ""};
  static const KeyTable<Gradient> KEYS;

  explicit Gradient(std::string name);
  ~Gradient() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// SOLID, which a gradient must not have, when the element names no mode.
  lum::BackgroundColorModes getMode() const { return _mode; }
  const Color& getTopColor() const { return _topColor; }
  const Color& getBottomColor() const { return _bottomColor; }

  /// Adds nothing: a background is not a drawable.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

 protected:
  VisibilityUse getVisibilityUse() const override { return VisibilityUse::NONE; }

 private:
  Color _topColor;
  Color _bottomColor;
  lum::BackgroundColorModes _mode = lum::BackgroundColorModes::SOLID;
};

}  // namespace vemo
