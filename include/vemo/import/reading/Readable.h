#pragma once

#include <vemo/import/Export.h>

#include <string>

namespace vemo {

class QxElement;
class SceneFileReader;

/// The keys of an item's element, each with its member, default and meaning.
template <class Item>
class KeyTable;

/// An object that is read from an element of the scene description.
class VEMO_IMPORT_EXPORT Readable {
 public:
  /// The attribute under which an element states its format version.
  static inline const std::string XML_ATTRIB_VERSION = "version";

  Readable() = default;
  Readable(const Readable&) = default;
  Readable& operator=(const Readable&) = default;
  virtual ~Readable();

  /// Fills the object from its element. Arrays come through the reader, which
  /// may be null for objects without any.
  virtual void read(const QxElement& element, SceneFileReader* reader) = 0;

 protected:
  /// The newest version of most elements.
  static constexpr int VERSION = 1;
};

}  // namespace vemo
