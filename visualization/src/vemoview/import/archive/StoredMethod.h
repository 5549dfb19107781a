#pragma once

#include "vemoview/import/archive/Compression.h"

namespace vemo {

/// The content as it is.
class StoredMethod final : public CompressionMethod {
 public:
  std::optional<std::size_t> decompress(const CompressedBytes& compressed, std::span<char> content,
                                        ContentPass& pass) const override;
};

}  // namespace vemo
