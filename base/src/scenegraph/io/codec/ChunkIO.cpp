#include "scenegraph/io/codec/ChunkIO.h"

#include "base/MemoryReserve.h"
#include "geometry/NewArray.h"
#include <vemo/scenegraph/io/FileError.h>

#include <vtkDataArray.h>

#include <algorithm>
#include <fmt/format.h>
#include <memory>
#include <xxhash.h>

namespace lum::io {

namespace {

/// Hashed while it is still in the processor's cache.
constexpr std::uint64_t BLOCK_SIZE = 1 << 20;

class Hash {
 public:
  Hash() : _state(XXH3_createState()) {
    if (!_state) {
      vemo::OS::throwNoMemory();
    }
    XXH3_64bits_reset(_state.get());
  }

  void add(const void* data, std::size_t size) { XXH3_64bits_update(_state.get(), data, size); }

  std::uint64_t get() const { return XXH3_64bits_digest(_state.get()); }

  void check(const ChunkRow& row) const {
    const std::uint64_t found = get();
    if (found != row.hash) {
      throw FileError(FileIoStatus::ReadError,
                      fmt::format("hash mismatch ({:016x}, expected {:016x})", found, row.hash));
    }
  }

 private:
  struct Free {
    void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
  };
  std::unique_ptr<XXH3_state_t, Free> _state;
};

void requireBytes(const InputSource& source, std::uint64_t size) {
  if (size > source.getLeft()) {
    throw FileError(FileIoStatus::ReadError, fmt::format("{} bytes needed, {} left", size, source.getLeft()));
  }
}

/// Calls visit with each block in turn until it returns false.
/// Returns whether all calls returned true.
template <class Visit>
bool readBlocks(InputSource& source, std::uint64_t size, Visit&& visit) {
  requireBytes(source, size);
  std::string buffer(std::min(BLOCK_SIZE, size), '\0');
  while (size > 0) {
    const std::string_view block(buffer.data(), std::min<std::uint64_t>(buffer.size(), size));
    source.read(buffer.data(), block.size());
    if (!visit(block)) {
      return false;
    }
    size -= block.size();
  }
  return true;
}

}  // namespace

std::uint64_t hashOf(std::string_view bytes) {
  return XXH3_64bits(bytes.data(), bytes.size());
}

std::uint64_t hashInBlocks(std::string_view bytes, const std::function<void(std::string_view)>& visit) {
  if (bytes.size() <= BLOCK_SIZE) {
    visit(bytes);
    return hashOf(bytes);
  }
  Hash hash;
  while (!bytes.empty()) {
    const std::string_view block = bytes.substr(0, BLOCK_SIZE);
    hash.add(block.data(), block.size());
    visit(block);
    bytes.remove_prefix(block.size());
  }
  return hash.get();
}

std::optional<std::uint64_t> hashNext(InputSource& source, std::uint64_t size,
                                      const std::function<bool(std::string_view)>& visit) {
  Hash hash;
  const bool isWhole = readBlocks(source, size, [&](std::string_view block) {
    hash.add(block.data(), block.size());
    return visit(block);
  });
  return isWhole ? std::optional(hash.get()) : std::nullopt;
}

std::string_view bytesOf(vtkDataArray& array) {
  const auto size =
      static_cast<std::size_t>(array.GetNumberOfValues()) * static_cast<std::size_t>(array.GetDataTypeSize());
  return size == 0 ? std::string_view()
                   : std::string_view(static_cast<const char*>(array.GetVoidPointer(0)), size);
}

vtkSmartPointer<vtkDataArray> readArray(InputSource& source, const ChunkRow& row) {
  requireBytes(source, row.bytes());
  auto array = makeArray(row.type);
  array->SetNumberOfComponents(static_cast<int>(row.components));
  vemo::allocateTuples(*array, static_cast<vtkIdType>(row.tuples));
  auto* bytes = static_cast<char*>(array->GetVoidPointer(0));
  Hash hash;
  for (std::uint64_t done = 0; done < row.bytes();) {
    const std::size_t size = std::min(BLOCK_SIZE, row.bytes() - done);
    source.read(bytes + done, size);
    hash.add(bytes + done, size);
    done += size;
  }
  hash.check(row);
  return array;
}

void checkArray(InputSource& source, const ChunkRow& row) {
  Hash hash;
  readBlocks(source, row.bytes(), [&](std::string_view block) {
    hash.add(block.data(), block.size());
    return true;
  });
  hash.check(row);
}

bool isSameArray(InputSource& source, const ChunkRow& row, vtkDataArray& array) {
  std::string_view expected = bytesOf(array);
  return readBlocks(source, row.bytes(), [&](std::string_view block) {
    const bool isSame = expected.starts_with(block);
    expected.remove_prefix(block.size());
    return isSame;
  });
}

}  // namespace lum::io
