#pragma once

#include <vemo/import/ElementPlace.h>
#include <vemo/import/reading/Readable.h>

#include <string>

namespace vemo {

/// A part of a scene that has a name.
class VEMO_IMPORT_EXPORT SceneItem : public Readable {
 public:
  static const KeyTable<SceneItem> KEYS;

  explicit SceneItem(std::string name);
  SceneItem(const SceneItem&) = default;
  SceneItem& operator=(const SceneItem&) = default;
  ~SceneItem() override;

  /// Reads the name: empty when the element states none.
  void read(const QxElement& element, SceneFileReader* reader) override;

  virtual bool isAssembly() { return false; }
  virtual bool isBackground() const { return false; }

  const std::string& getName() const { return _name; }

  /// What the item is called in the path of an item: by its name, or by the kind
  /// of its element when it has none.
  const std::string& getPathName() const { return _name.empty() ? _kind : _name; }
  static const std::string& pathName(const QxElement& element);
  /// The name stated by the element, without marking it as read.
  static std::string statedName(const QxElement& element);
  /// Of the item's element; unknown for items made in code.
  const ElementPlace& getPlace() const { return _place; }

 protected:
  void readImpl(const QxElement& element, SceneFileReader* reader);

 private:
  static inline const std::string XML_ATTRIB_NAME = "name";

  std::string _name;
  std::string _kind;
  ElementPlace _place;
};

}  // namespace vemo
