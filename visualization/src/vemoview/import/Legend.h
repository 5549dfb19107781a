#pragma once

#include "vemoview/import/GraphicsItem.h"

#include <string>

/// What the colours of an assembly mean, beside the picture. Its element is
/// known and read, so that a scene with legends opens; the legend itself is not
/// converted.
class VEMO_IMPORT_EXPORT Legend : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "legend";

  explicit Legend(std::string name);
  ~Legend() override;

  void read(const QxElement& element, SceneFileReader* reader) override;
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;
};
