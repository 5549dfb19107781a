#include "vemoview/import/archive/ByteOrder.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vemo {

namespace {

template <class Word, class Convert>
void replace(unsigned char* bytes, const Convert& convert) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  word = convert(word);
  std::memcpy(bytes, &word, sizeof word);
}

/// Reversing eight bytes reverses each word, and exchanges the two.
std::uint64_t convertPair(std::uint64_t words) {
  return std::rotl(__builtin_bswap64(words), 32);
}

}  // namespace

// In pairs it takes half of the time.
void convertWords(std::span<unsigned char> bytes) {
  if constexpr (std::endian::native == std::endian::big) {
    return;
  }
  constexpr std::size_t WORD = sizeof(std::uint32_t);
  constexpr std::size_t PAIR = 2 * WORD;
  unsigned char* const first = bytes.data();
  std::size_t i = 0;
  for (; i + PAIR <= bytes.size(); i += PAIR) {
    replace<std::uint64_t>(first + i, convertPair);
  }
  if (i + WORD <= bytes.size()) {
    replace<std::uint32_t>(first + i, [](std::uint32_t word) { return __builtin_bswap32(word); });
  }
}

}  // namespace vemo
