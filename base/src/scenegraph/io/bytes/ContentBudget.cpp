#include "scenegraph/io/bytes/ContentBudget.h"

#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>

namespace lum::io {

namespace {

/// Shorter texts are in the string object itself.
constexpr std::size_t SHORT_TEXT_BYTES = 15;

}  // namespace

void ContentBudget::useText(std::string_view text) {
  if (text.size() > SHORT_TEXT_BYTES) {
    use(text.size());
  }
}

void ContentBudget::use(std::uint64_t bytes) {
  if (bytes > _allowed - _used) {
    throw FileError(
        FileIoStatus::ReadError,
        fmt::format("Texts, keys and arrays that are used many times, and arrays that are empty, take more "
                    "than {} bytes, which is out of proportion to the file",
                    _allowed));
  }
  _used += bytes;
}

void ContentBudget::useNodes(std::uint64_t count) {
  if (count > _nodeLimit - _nodes) {
    throw FileError(
        FileIoStatus::ReadError,
        fmt::format("A scene graph of more than {} nodes is out of proportion to the file", _nodeLimit));
  }
  _nodes += count;
}

}  // namespace lum::io
