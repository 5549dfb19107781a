#pragma once

namespace vemo {

template <class Item>
class KeyTable;

/// The version of the format that an element is written in.
struct ElementVersion {
  static const KeyTable<ElementVersion> KEYS;

  int version = 0;
};

}  // namespace vemo
