#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/Export.h>

#include <string>

namespace vemo {

class Font;
class QxElement;
class SceneFileReader;

/// Reads the values of what a scene can do without (legends, texts, pictures).
/// A value that the element does not state keeps what it is by default, and so
/// does one that cannot be read, of which the user is warned: nothing here stops
/// a scene. Only a style of a newer version does.
class VEMO_IMPORT_EXPORT OptionalValues {
 public:
  /// The reader receives the warnings; it may be null.
  OptionalValues(const QxElement& element, SceneFileReader* reader);

  std::string getString(const std::string& name, const std::string& otherwise) const;
  int getInt(const std::string& name, int otherwise, int least, int greatest) const;
  double getDouble(const std::string& name, double otherwise) const;
  /// The number of the row that holds exactly the text of the attribute. The
  /// table ends with an empty row.
  int getRow(const std::string& name, const std::string* table, int otherwise) const;
  /// The numbers of the child element of that name.
  Vector<3, double> getVector3(const std::string& name, const Vector<3, double>& otherwise) const;
  /// Reads the child element "font"; the font keeps what it is without one, and
  /// with one that cannot be read.
  void getFont(Font& font) const;

  /// Says that the value of an attribute cannot be used.
  void warn(const std::string& name, const std::string& reason) const;

 private:
  const QxElement& _element;
  SceneFileReader* _reader;
};

}  // namespace vemo
