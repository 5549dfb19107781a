#pragma once

#include "vemoview/import/GraphicsItem.h"

#include <string>

/// A picture in the scene. Its element is known and read, so that a scene with
/// pictures opens; the picture itself is not converted.
class VEMO_IMPORT_EXPORT Image : public GraphicsItem {
 public:
  explicit Image(std::string name);
  ~Image() override;

  void read(const QxElement& element, SceneFileReader* reader) override;
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;
};
