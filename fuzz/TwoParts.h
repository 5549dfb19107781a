#pragma once

#include <vemo/scenegraph/io/SDBReader.h>

#include <string>

namespace vemo {

/// An input of two parts, behind three bytes with the size of the first, and one
/// whose bits say how the target reads them.
struct TwoParts {
  std::string first;
  std::string second;
  unsigned bits = 0;
};

/// What a target with such inputs defines: one that is right. The interesting ones
/// are near it.
TwoParts makeSample();

TwoParts takeApart(const std::string& input);

// Of databases, the parts are what follows the header: the arrays and the index.

TwoParts makeSampleDatabase();
lum::SDBReader openDatabase(const TwoParts& parts);

}  // namespace vemo
