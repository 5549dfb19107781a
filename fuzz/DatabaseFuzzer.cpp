// Databases.

#include "Fuzzing.h"
#include "TwoParts.h"

namespace vemo {

TwoParts makeSample() {
  return makeSampleDatabase();
}

void readInput(const std::string& input) {
  lum::SDBReader reader = openDatabase(takeApart(input));
  for (std::size_t i = 0; i < reader.getRecords().size(); ++i) {
    requireRoundTrip(*reader.readNode(i));
  }
}

}  // namespace vemo
