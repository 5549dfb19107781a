#include "TwoParts.h"

#include "Fuzzing.h"
#include "support/Databases.h"
#include "support/Files.h"
#include "support/SampleGraphs.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vemo {

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

/// A short input is made the sample first.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned /*seed*/) {
  static const std::string sample = [] {
    const TwoParts parts = makeSample();
    const auto firstSize = static_cast<std::uint32_t>(parts.first.size());
    return std::string(reinterpret_cast<const char*>(&firstSize), sizeof firstSize) + parts.first +
           parts.second;
  }();
  if (size < 64 && sample.size() <= maximumSize) {
    sample.copy(reinterpret_cast<char*>(data), sample.size());
    size = sample.size();
  }
  return LLVMFuzzerMutate(data, size, maximumSize);
}

TwoParts takeApart(const std::string& input) {
  std::uint32_t head = 0;
  if (input.size() < sizeof head) {
    return {};
  }
  std::memcpy(&head, input.data(), sizeof head);
  const std::string rest = input.substr(sizeof head);
  const std::size_t split = std::min<std::size_t>(head & 0xFFFFFFU, rest.size());
  return {rest.substr(0, split), rest.substr(split), head >> 24U};
}

TwoParts makeSampleDatabase() {
  const TemporaryFolder folder;
  writeDatabase(folder / "sample.sdb", *makeScene());
  const DatabaseBytes bytes(readFile(folder / "sample.sdb"));
  return {bytes.chunks, bytes.index};
}

lum::SDBReader openDatabase(const TwoParts& parts) {
  return lum::SDBReader(putIntoFile(DatabaseBytes(parts.first, parts.second).join()));
}

}  // namespace vemo
