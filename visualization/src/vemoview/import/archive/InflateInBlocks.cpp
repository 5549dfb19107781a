#include "base/MemoryReserve.h"
#include "vemoview/import/archive/Inflate.h"

#include <algorithm>
#include <array>
#include <zlib.h>

namespace vemo {

namespace {

class Inflater {
 public:
  Inflater(const CompressedBytes& compressed, std::span<char> content) : _compressed(compressed) {
    _isReady = inflateInit2(&_stream, -MAX_WBITS) == Z_OK;
    _stream.next_out = reinterpret_cast<Bytef*>(content.data());
    _stream.avail_out = static_cast<uInt>(content.size());
  }
  ~Inflater() { inflateEnd(&_stream); }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  /// False when the compressed bytes are invalid, or end before they should. Throws
  /// std::bad_alloc.
  bool run() {
    int result = _isReady ? Z_OK : Z_MEM_ERROR;
    while (result == Z_OK && _stream.avail_out > 0) {
      if (_stream.avail_in == 0 && !takeBlock()) {
        return false;
      }
      result = inflate(&_stream, Z_SYNC_FLUSH);
    }
    if (result == Z_MEM_ERROR) {
      OS::throwNoMemory();
    }
    return result == Z_OK || result == Z_STREAM_END;
  }

  std::size_t getCount() const { return _stream.total_out; }

 private:
  bool takeBlock() {
    const std::span block(_block.data(), static_cast<std::size_t>(std::min<std::uint64_t>(
                                             _block.size(), _compressed.size() - _taken)));
    if (block.empty() || !_compressed.read(block, _taken)) {
      return false;
    }
    _taken += block.size();
    _stream.next_in = reinterpret_cast<Bytef*>(block.data());
    _stream.avail_in = static_cast<uInt>(block.size());
    return true;
  }

  const CompressedBytes& _compressed;
  std::uint64_t _taken = 0;
  std::array<char, 0x10000> _block;
  z_stream _stream{};
  bool _isReady;
};

}  // namespace

std::optional<std::size_t> inflateInBlocks(const CompressedBytes& compressed, std::span<char> content) {
  Inflater inflater(compressed, content);
  return inflater.run() ? std::optional(inflater.getCount()) : std::nullopt;
}

}  // namespace vemo
