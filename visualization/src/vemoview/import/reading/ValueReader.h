#pragma once

#include "vemoview/import/reading/KeyDescription.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/reading/Readable.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/Finding.h>

#include <array>
#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

namespace vemo {

struct ValueForm;

/// What happens to a value that cannot be read.
enum class OnBadValue {
  FAIL,  ///< It has the value that the format gives such texts, with a finding, or throws if there is none.
  WARN,  ///< It is ignored, with a finding.
};

/// Reads members from the attributes and children of one element, each as its
/// key says.
class ValueReader {
 public:
  /// The reader receives the warnings; it may be null.
  ValueReader(const QxElement& element, SceneFileReader* reader, OnBadValue onBadValue);

  /// Of an attribute or child that states something which is not in the scene graph.
  void reportWithoutEffect(const std::string& attribute) const;
  /// The same for the "z" of a vector, unless it is 0.
  void reportDepthWithoutEffect(const std::string& vector, double depth) const;

  /// Whether an attribute, or a component of a vector, is not written as a number: reading it has reported
  /// what it counts as. What follows from this is no other fault.
  bool isUnknown(const std::string& name) const;
  /// The same of the x and the y of a vector that states two ends.
  std::array<bool, 2> findUnknownEnds(const std::string& vector) const;

  /// Whether an attribute is absent or states this word, and no other that is ignored.
  bool isAbsentOr(const std::string& word, const std::string& attribute) const;

  const QxElement& getElement() const { return _element; }
  SceneFileReader* getReader() const { return _reader; }

  void read(const KeyDescription& key, bool& value) const;
  void read(const KeyDescription& key, int& value) const;
  void read(const KeyDescription& key, float& value) const;
  void read(const KeyDescription& key, double& value) const;
  void read(const KeyDescription& key, std::string& value) const;
  /// The name of an archive entry.
  void read(const KeyDescription& key, std::optional<std::string>& value) const;
  void read(const KeyDescription& key, Color& value) const;
  void read(const KeyDescription& key, Vector<2, double>& value) const;
  void read(const KeyDescription& key, Vector<3, double>& value) const;
  /// Stays null without the key.
  void read(const KeyDescription& key, std::unique_ptr<Vector<3, double>>& value) const;

  template <class T>
  requires std::is_enum_v<T>
  void read(const KeyDescription& key, T& value) const {
    value = static_cast<T>(readWord(key, static_cast<int>(value)));
  }

  /// A child element. Without it, or when it is ignored, the value is kept.
  template <std::derived_from<Readable> T>
  void read(const KeyDescription& key, T& value) const {
    if (const QxElement* const child = findOnlyChild(key)) {
      readOrWarn(key, [&] {
        const ReadingContext::ItemScope scope(_reader, key.name, child->getPlace());
        T stated;
        stated.read(*child, _reader);
        value = stated;
      });
    }
  }

 private:
  /// @param get reads the attribute, which is present
  template <class T, class Get>
  void readAttribute(const KeyDescription& key, const ValueForm& form, T& value, Get get) const;
  /// The same for a number.
  template <class T, class Get>
  void readInRange(const KeyDescription& key, const ValueForm& form, T& value, Get get) const;
  /// The element of a vector; null without one, or when it is ignored.
  const QxElement* findVector(const KeyDescription& key) const;
  /// The first child of that name. Others are reported.
  const QxElement* findOnlyChild(const KeyDescription& key) const;
  int readWord(const KeyDescription& key, int current) const;
  /// Calls the function. Where bad values are ignored, its failures become
  /// warnings.
  template <class Function>
  void readOrWarn(const KeyDescription& key, Function&& function) const {
    if (_onBadValue == OnBadValue::FAIL) {
      return function();
    }
    // What is ignored is not a fault of the scene.
    const ReadingContext::ThrowingScope scope(_reader);
    try {
      function();
    } catch (...) {
      warnOfCurrentException(key);
    }
  }

  /// Rethrows the exception if it is not about a bad value. Else the child that it is
  /// about counts as read: one finding covers all of it.
  void warnOfCurrentException(const KeyDescription& key) const;
  void warnIgnored(const KeyDescription& key, const std::string& reason) const;
  /// About an attribute, or else the child element of that name.
  void report(FindingCode code, const std::string& text, const std::string& name) const;

  const QxElement& _element;
  SceneFileReader* _reader;
  OnBadValue _onBadValue;
};

}  // namespace vemo
