#include "Fuzzing.h"

#include "support/Databases.h"
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace vemo {

void require(bool condition, const std::string& text) {
  if (!condition) {
    std::cerr << text << '\n';
    std::abort();
  }
}

void requireRoundTrip(const lum::Node& node) {
  const std::string difference = lum::firstDifference(node, *throughStreams(node));
  require(difference.empty(), "Not the same after a round trip: " + difference);
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

/// A short input is made the sample first.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned /*seed*/) {
  static const std::string sample = [] {
    const FuzzInput input = makeSample();
    const auto size = static_cast<std::uint32_t>(input.first.size());
    return std::string(reinterpret_cast<const char*>(&size), sizeof size) + input.first + input.second;
  }();
  if (size < 64 && sample.size() <= maximumSize) {
    sample.copy(reinterpret_cast<char*>(data), sample.size());
    size = sample.size();
  }
  return LLVMFuzzerMutate(data, size, maximumSize);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::uint32_t firstSize = 0;
  if (size < sizeof firstSize) {
    return 0;
  }
  std::memcpy(&firstSize, data, sizeof firstSize);
  const std::string rest(reinterpret_cast<const char*>(data) + sizeof firstSize, size - sizeof firstSize);
  const std::size_t split = std::min<std::size_t>(firstSize, rest.size());
  try {
    readInput({rest.substr(0, split), rest.substr(split)});
  } catch (const lum::io::FileError& error) {
    require(error.what()[0] != '\0', "An error without a text");
  }
  return 0;
}

}  // namespace vemo
