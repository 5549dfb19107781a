#pragma once

#include <vemo/import/archive/ZipFileReader.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace vemo {

/// What is done with the content of an entry: its checksum is computed, then it
/// is converted. Both happen block by block, as soon as a block is there and while it
/// is still in the processor's cache: passes over large contents cost as much as
/// copying them.
class ContentPass {
 public:
  using Convert = ZipFileReader::Convert;

  /// Content is read in multiples of so many bytes.
  static constexpr std::size_t BLOCK = std::size_t{1} << 18U;

  /// @param convert if not empty, is called with each block; all but the last
  ///   have BLOCK bytes
  ContentPass(std::span<char> content, const Convert& convert) : _content(content), _convert(convert) {}

  /// So many bytes of the content are there, and will not be changed.
  void advance(std::size_t count);

  /// There are no more than so many: the rest becomes zero, and has no part in the
  /// checksum.
  void finish(std::size_t count);

  /// As the zip format has it.
  std::uint32_t getChecksum() const { return _checksum; }

 private:
  void passBlock(std::size_t count);

  std::span<char> _content;
  const Convert& _convert;
  std::size_t _done = 0;
  std::uint32_t _checksum = 0;
};

}  // namespace vemo
