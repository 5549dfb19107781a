#include "vemoview/import/archive/ContentPass.h"

#include <algorithm>
#include <libdeflate.h>

namespace vemo {

void ContentPass::advance(std::size_t count) {
  while (count - _done >= BLOCK) {
    passBlock(BLOCK);
  }
}

void ContentPass::finish(std::size_t count) {
  std::ranges::fill(_content.subspan(count), '\0');
  while (_done < _content.size()) {
    passBlock(count - std::min(count, _done));
  }
}

/// @param count bytes from the block's begin that count for the checksum
void ContentPass::passBlock(std::size_t count) {
  const auto block = _content.subspan(_done, std::min(BLOCK, _content.size() - _done));
  _checksum = libdeflate_crc32(_checksum, block.data(), std::min(count, block.size()));
  if (_convert) {
    _convert(block);
  }
  _done += block.size();
}

}  // namespace vemo
