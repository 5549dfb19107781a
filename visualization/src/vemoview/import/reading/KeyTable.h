#pragma once

#include "vemoview/import/reading/ElementVersion.h"
#include "vemoview/import/reading/KeyDescription.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/reading/ValueReader.h"
#include <vemo/import/reading/Readable.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace vemo {

/// A key of an element, and the member of the item that it is read into.
template <class Item>
struct Key : KeyDescription {
  void (*read)(Item& item, const ValueReader& values, const KeyDescription& key) = nullptr;
  std::string (*printDefault)(const Item& item, const KeyDescription& key) = nullptr;

  /// The names of an enumeration's values, in order. The last one is empty.
  Key named(const std::string* names) && {
    words = names;
    return std::move(*this);
  }
  Key inRange(double from, double to) && {
    least = from;
    greatest = to;
    return std::move(*this);
  }
  Key allowedIf(bool (*function)(std::string_view), const std::string& reason) && {
    isAllowed = function;
    whyNotAllowed = reason;
    return std::move(*this);
  }
  Key own() && {
    isOwn = true;
    return std::move(*this);
  }
  /// The new generation cannot hold the value, and loses nothing without it.
  Key withoutEffect() && {
    isWithoutEffect = true;
    return std::move(*this);
  }
  Key ignoredIfBad() && {
    isIgnoredIfBad = true;
    return std::move(*this);
  }
  /// Nothing uses the colour's alpha. Where it is not opaque, a finding says so.
  Key withoutAlpha() && {
    isAlphaUnused = true;
    return std::move(*this);
  }
  /// Items of other types do not use the value.
  Key onlyFor(std::initializer_list<int> types) && {
    appliesTo = 0;
    for (const int itemType : types) {
      appliesTo |= 1U << static_cast<unsigned>(itemType);
    }
    return std::move(*this);
  }
  /// What the page says instead of the default value.
  Key defaultingTo(const std::string& text) && {
    defaultText = text;
    return std::move(*this);
  }
};

namespace key {

constexpr int NONE = -1;

template <class Item, class Value>
Item itemOf(Value Item::*);

/// The member, or the component of it.
template <auto MEMBER, int COMPONENT = NONE>
auto& access(auto& item) {
  if constexpr (COMPONENT == NONE) {
    return item.*MEMBER;
  } else {
    return (item.*MEMBER)[static_cast<std::size_t>(COMPONENT)];
  }
}

template <auto MEMBER, int COMPONENT = NONE>
auto make(const std::string& name, WhenAbsent whenAbsent, const std::string& meaning) {
  using Item = decltype(itemOf(MEMBER));
  using Value = std::remove_cvref_t<decltype(access<MEMBER, COMPONENT>(std::declval<Item&>()))>;
  Key<Item> made;
  made.name = name;
  made.whenAbsent = whenAbsent;
  made.meaning = meaning;
  made.type = typeName<Value>();
  made.read = [](Item& item, const ValueReader& values, const KeyDescription& key) {
    values.read(key, access<MEMBER, COMPONENT>(item));
  };
  made.printDefault = [](const Item& item, const KeyDescription& key) {
    const auto print = [&](const Value& value) {
      if constexpr (std::is_enum_v<Value>) {
        return wordText(key.words, static_cast<int>(value));
      } else {
        return valueText(value);
      }
    };
    return key.whenAbsent == WhenAbsent::RESET ? print(Value()) : print(access<MEMBER, COMPONENT>(item));
  };
  return made;
}

/// Without the key the member becomes 0, false, empty or the first word; for a
/// colour this is an error. `always<&Colormap::_range, 0>` is a component.
template <auto MEMBER, int COMPONENT = NONE>
auto always(std::string name, std::string meaning) {
  return make<MEMBER, COMPONENT>(std::move(name), WhenAbsent::RESET, std::move(meaning));
}

/// Without the key the member keeps its value.
template <auto MEMBER, int COMPONENT = NONE>
auto ifPresent(std::string name, std::string meaning) {
  return make<MEMBER, COMPONENT>(std::move(name), WhenAbsent::KEPT, std::move(meaning));
}

}  // namespace key

/// The keys of an element, in the order in which they are read.
template <class Item>
class KeyTable {
 public:
  /// @param newestVersion the newest version of the element that is understood
  explicit KeyTable(std::vector<Key<Item>> keys, OnBadValue onBadValue = OnBadValue::FAIL,
                    int newestVersion = 1)
      : _keys(std::move(keys)), _onBadValue(onBadValue), _newestVersion(newestVersion) {}

  /// Reads each key in a separate attempt. Returns whether all succeeded.
  bool read(Item& item, const QxElement& element, SceneFileReader* reader) const {
    return read(item, ValueReader(element, reader, _onBadValue));
  }
  bool read(Item& item, const ValueReader& values) const {
    bool isSound = true;
    for (const Key<Item>& key : _keys) {
      if (key.isWithoutEffect) {
        values.getElement().markUnused(key.name);
      }
      isSound = attempt(values.getReader(), [&] { key.read(item, values, key); }) && isSound;
    }
    return isSound;
  }

  /// Marks the keys of the element as known without reading them.
  void markRead(const QxElement& element) const {
    for (const Key<Item>& key : _keys) {
      element.findAttribute(key.name);
    }
  }

  /// Marks the keys of the element that items of this type do not use.
  void markInapplicable(const QxElement& element, int itemType) const {
    for (const Key<Item>& key : _keys) {
      if ((key.appliesTo & 1U << static_cast<unsigned>(itemType)) == 0) {
        element.markUnused(key.name);
      }
    }
  }

  /// Throws FutureVersionException for an element that is too new, before
  /// anything is read.
  void checkVersion(const QxElement& element, SceneFileReader* reader) const {
    vemo::checkVersion(element, reader, _newestVersion, _onBadValue);
  }

  /// Checks the version, then reads the keys.
  void readElement(Item& item, const QxElement& element, SceneFileReader* reader) const {
    checkVersion(element, reader);
    read(item, element, reader);
  }

  /// Checks the version, lets the base class read, then reads the keys.
  template <class Base>
  void readElement(Item& item, const QxElement& element, SceneFileReader* reader) const {
    checkVersion(element, reader);
    item.Base::read(element, reader);
    read(item, element, reader);
  }

  /// Whether it is a key that items may share.
  bool isShared(std::string_view name) const {
    return std::ranges::any_of(_keys, [&](const Key<Item>& key) { return key.name == name && !key.isOwn; });
  }

  OnBadValue getOnBadValue() const { return _onBadValue; }

  /// @param item a new one
  std::vector<KeyText> describe(const Item& item) const {
    std::vector<KeyText> rows;
    for (const Key<Item>& key : _keys) {
      rows.push_back(describeKey(key, key.printDefault(item, key)));
    }
    return rows;
  }

 private:
  std::vector<Key<Item>> _keys;
  OnBadValue _onBadValue;
  int _newestVersion;
};

}  // namespace vemo
