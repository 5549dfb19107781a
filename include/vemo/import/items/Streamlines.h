#pragma once

#include <vemo/import/reading/Readable.h>

#include <string>

namespace vemo {

/// Streamlines that a viewer would compute from a field.
/// Scene files only mention them: there is nothing to read, and they are not
/// shown.
class VEMO_IMPORT_EXPORT Streamlines : public Readable {
 public:
  static inline const std::string XML_ENTITY = "streamlines";

  ~Streamlines() override;

  /// Warns that they are not shown.
  void read(const QxElement& element, SceneFileReader* reader) override;
};

}  // namespace vemo
