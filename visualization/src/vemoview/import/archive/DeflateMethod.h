#pragma once

#include "vemoview/import/archive/Compression.h"

namespace vemo {

/// RFC 1951, without a header.
class DeflateMethod final : public CompressionMethod {
 public:
  std::optional<std::size_t> decompress(const CompressedBytes& compressed, std::span<char> content,
                                        ContentPass& pass) const override;
};

}  // namespace vemo
