#include "vemoview/import/archive/DeflateMethod.h"

#include <zlib.h>

namespace vemo {

namespace {

class Inflater {
 public:
  explicit Inflater(std::span<char> content) {
    _isReady = inflateInit2(&_stream, -MAX_WBITS) == Z_OK;
    _stream.next_out = reinterpret_cast<Bytef*>(content.data());
    _stream.avail_out = static_cast<uInt>(content.size());
  }
  ~Inflater() { inflateEnd(&_stream); }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  /// False when the compressed bytes are invalid, or end before they should.
  bool run(const CompressedBlocks& blocks) {
    int result = _isReady ? Z_OK : Z_MEM_ERROR;
    while (result == Z_OK && _stream.avail_out > 0) {
      if (_stream.avail_in == 0 && !takeBlock(blocks)) {
        return false;
      }
      result = inflate(&_stream, Z_SYNC_FLUSH);
    }
    return result == Z_OK || result == Z_STREAM_END;
  }

  std::size_t getCount() const { return _stream.total_out; }

 private:
  bool takeBlock(const CompressedBlocks& blocks) {
    const auto block = blocks();
    if (!block || block->empty()) {
      return false;
    }
    // The library does not write there; its type leaves out the const.
    _stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(block->data()));
    _stream.avail_in = static_cast<uInt>(block->size());
    return true;
  }

  z_stream _stream{};
  bool _isReady;
};

}  // namespace

std::optional<std::size_t> DeflateMethod::decompress(const CompressedBlocks& blocks,
                                                     std::span<char> content) const {
  Inflater inflater(content);
  return inflater.run(blocks) ? std::optional(inflater.getCount()) : std::nullopt;
}

}  // namespace vemo
