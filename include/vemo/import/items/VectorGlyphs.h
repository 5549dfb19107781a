#pragma once

#include <vemo/import/reading/Readable.h>

#include <string>

namespace vemo {

/// Arrows that a viewer would draw for a field of vectors.
/// Scene files only mention them: there is nothing to read, and they are not
/// shown.
class VEMO_IMPORT_EXPORT VectorGlyphs : public Readable {
 public:
  static inline const std::string XML_ENTITY = "vectors";

  ~VectorGlyphs() override;

  /// Warns that they are not shown.
  void read(const QxElement& element, SceneFileReader* reader) override;
};

}  // namespace vemo
