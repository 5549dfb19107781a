#pragma once

#include <vemo/import/Export.h>

#include <string>

namespace vemo {

class QxElement;
class SceneFileReader;

/// Whatever an element of the scene description is read into.
class VEMO_IMPORT_EXPORT Readable {
 public:
  /// The attribute under which an element states its format version.
  static inline const std::string XML_ATTRIB_VERSION = "version";

  Readable() = default;
  Readable(const Readable&) = default;
  Readable& operator=(const Readable&) = default;
  virtual ~Readable();

  /// Fills the object from its element. Arrays come through the reader, which
  /// may be null for what needs none.
  virtual void read(const QxElement& element, SceneFileReader* reader) = 0;

 protected:
  /// The newest version of most elements.
  static constexpr int VERSION = 1;

  /// Throws FutureVersionException, before anything is read, when the element
  /// states a version above the newest one understood.
  static void checkVersion(const QxElement& element, int newest = VERSION);

  /// The same for elements that a scene can do without: a version that is no
  /// number is warned of and passed over.
  static void checkVersionOfExtra(const QxElement& element, SceneFileReader* reader);

  /// Warns that there is something in the file that no picture shows.
  static void warnNotShown(const QxElement& element, SceneFileReader* reader);
};

}  // namespace vemo
