#pragma once

#include <vemo/base/Vector.h>
#include <vemo/import/ElementPlace.h>
#include <vemo/import/Export.h>
#include <vemo/import/xml/Color.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

class ElementTexts;

/// One element of the scene description. A parent owns its children. Names of
/// attributes and children are compared exactly.
///
/// An element records which of its parts were read; the others are unknown to
/// all items.
class VEMO_IMPORT_EXPORT QxElement {
 public:
  class Attribute {
   public:
    Attribute(const std::string& name, const std::string& value) : _name(&name), _value(&value) {}

    const std::string& getName() const { return *_name; }
    const std::string& getValue() const { return *_value; }
    bool isRead() const { return _isRead; }
    bool isUnused() const { return _isUnused; }
    bool isPartlyUnused() const { return _isPartlyUnused; }
    /// The format has it, but nothing here needs it.
    void markUnused() const { _isUnused = true; }

   private:
    friend class QxElement;

    const std::string* _name;
    const std::string* _value;
    mutable bool _isRead = false;
    mutable bool _isUnused = false;
    mutable bool _isPartlyUnused = false;
  };
  using Attributes = std::vector<Attribute>;
  using Children = std::vector<std::unique_ptr<QxElement>>;

  explicit QxElement(const std::string& name);
  /// @param texts keeps the names and values of the elements of one document
  QxElement(std::string_view name, std::shared_ptr<ElementTexts> texts);
  /// Not recursive: needs no more stack for a deep tree than for a flat one.
  ~QxElement();
  QxElement(const QxElement&) = delete;
  QxElement& operator=(const QxElement&) = delete;

  const std::string& getName() const { return *_name; }

  /// The last run of characters that the XML parser reported directly inside
  /// the element.
  const std::string& getText() const {
    _isTextRead = true;
    return _text;
  }
  void setText(std::string text);
  /// The same, without marking it as read.
  const std::string& peekText() const { return _text; }
  /// Whether there is text other than blanks.
  bool hasText() const { return _hasText; }
  bool isTextRead() const { return _isTextRead; }
  /// Whether an earlier run of characters held more than blanks.
  bool hasReplacedText() const { return _hasReplacedText; }

  /// In document order.
  const Attributes& getAttributes() const { return _attributes; }
  /// The attribute, which does not count as read by this; null when it is absent.
  const Attribute* peekAttribute(const std::string& name) const;
  void setAttribute(const std::string& name, const std::string& value);
  /// Pairs of a name and a value, up to a null; no name is there twice.
  void setAttributes(const char* const* namesAndValues);

  /// In document order.
  const Children& getChildren() const { return _children; }
  QxElement& addChild(std::unique_ptr<QxElement> child);

  /// Whether the element was read, on its own or with its parent.
  bool isRead() const { return _isRead; }
  void markRead() const { _isRead = true; }
  /// With its attributes and text.
  void markAllRead() const;
  /// Whether all of it was read: its attributes, text and children, too.
  bool isWhollyRead() const;
  /// Releases its attributes, text and children: scenes may have a great many
  /// elements.
  void dropContent();

  /// The attribute, if it is there (see Attribute::markUnused).
  void markUnused(const std::string& attribute) const;
  /// The same for a part of its value, as the alpha of a colour.
  void markPartlyUnused(const std::string& attribute) const;

  /// Whether the element has its effect though a later one replaces its parent.
  bool outlivesParent() const { return _outlivesParent; }
  void setOutlivesParent(bool outlives) const { _outlivesParent = outlives; }

  /// The first child of that name, which counts as read; null when there is none.
  const QxElement* findChild(const std::string& name) const;

  /// Unknown for elements created in code.
  const ElementPlace& getPlace() const { return _place; }
  void setPlace(const ElementPlace& place) { _place = place; }
  int getLine() const { return _place.line; }

  /// The stored value, which counts as read; null when the attribute is absent.
  const std::string* findAttribute(const std::string& name) const;

  /// A copy of the value; null when the attribute is absent.
  std::unique_ptr<std::string> getString(const std::string& name) const;

  /// True only for "true", in small letters.
  bool getBool(const std::string& name) const;

  /// See QxString::parseInt, in base 10.
  int getInt(const std::string& name, int defaultValue = 0) const;

  /// See QxString::parseDouble; 0 when the attribute is absent.
  double getDouble(const std::string& name) const;

  /// See Color::parse. An absent attribute is an error like one that is too
  /// short.
  Color getColor(const std::string& name) const;

  /// Sets `out` to the attributes "x", "y" and "z" of the first child of that
  /// name. Without such a child, returns false and does not change `out`.
  bool getVector3(const std::string& childName, Vector<3, double>& out) const;

 private:
  void addAttribute(std::string_view name, std::string_view value);

  std::shared_ptr<ElementTexts> _texts;
  const std::string* _name;
  std::string _text;
  Attributes _attributes;
  Children _children;
  ElementPlace _place;
  mutable bool _isRead = false;
  mutable bool _isTextRead = false;
  mutable bool _outlivesParent = false;
  bool _hasText = false;
  bool _hasReplacedText = false;
};

}  // namespace vemo
