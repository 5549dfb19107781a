#pragma once

#include <vemo/import/decorations/AxesItem.h>

namespace lum {
class TriadDrawable;
}

namespace vemo {

/// A triad in the model, with its own labels.
class VEMO_IMPORT_EXPORT CoordinateSystemItem : public AxesItem {
 public:
  static inline const std::string XML_ENTITY = "coordinatesystem";
  static const KeyTable<CoordinateSystemItem> KEYS;

  explicit CoordinateSystemItem(std::string name);
  ~CoordinateSystemItem() override;

  void read(const QxElement& element, SceneFileReader* reader) override;
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  const Vector<3, double>& getOrigin() const { return _origin; }
  void setOrigin(const Vector<3, double>& origin) { _origin = origin; }
  const Vector<3, std::string>& getAxesLabels() const { return _axesLabels; }
  void setAxesLabels(const Vector<3, std::string>& labels) { _axesLabels = labels; }

 protected:
  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  void reportUnusable(const QxElement& element, SceneFileReader& reader) const;
  lum::TriadDrawable& openTriad(SharedBySiblings& shared, lum::DrawableCollection& collection) const;

  Vector<3, double> _origin{};
  Vector<3, std::string> _axesLabels{};
};

}  // namespace vemo
