#pragma once

#include "vemoview/import/reading/ValueReader.h"

namespace vemo {

template <class Item>
class KeyTable;

/// The version of the format that an element is written in.
struct ElementVersion {
  static const KeyTable<ElementVersion> KEYS;

  int version = 0;
};

/// Throws FutureVersionException, without a message, when the element states a
/// version above the newest one understood. An item calls it before it reads
/// anything.
/// @param onBadValue what a version that is not a number does
void checkVersion(const QxElement& element, SceneFileReader* reader, int newest,
                  OnBadValue onBadValue = OnBadValue::FAIL);

}  // namespace vemo
