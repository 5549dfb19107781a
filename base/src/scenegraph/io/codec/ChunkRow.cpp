#include "scenegraph/io/codec/ChunkRow.h"

#include "scenegraph/io/bytes/ByteReader.h"
#include "scenegraph/io/bytes/ByteWriter.h"
#include <vemo/scenegraph/io/FileError.h>

#include <vtkDataArray.h>

#include <fmt/format.h>
#include <limits>

namespace lum::io {

namespace {

constexpr std::uint64_t MAX_COMPONENTS = std::numeric_limits<int>::max();
// VTK allocates a tuple even for an empty array, which takes no bytes of the
// file.
constexpr std::uint64_t MAX_COMPONENTS_WITHOUT_TUPLES = 1024;

// Far beyond any file, and far from overflowing.
constexpr std::uint64_t MAX_BYTES = std::uint64_t{1} << 60;

const char* nameOf(vtkDataArray& array) {
  return array.GetName() != nullptr ? array.GetName() : "";
}

/// Throws FileError with this status for an impossible array.
void requireShape(const ChunkRow& row, FileIoStatus status) {
  const std::uint64_t mostComponents = row.tuples == 0 ? MAX_COMPONENTS_WITHOUT_TUPLES : MAX_COMPONENTS;
  if (row.components == 0 || row.components > mostComponents ||
      row.tuples > MAX_BYTES / (row.components * arrayTypeSize(row.type))) {
    throw FileError(
        status, fmt::format("Invalid array shape: {} tuples of {} components", row.tuples, row.components));
  }
}

}  // namespace

ChunkRow rowOf(vtkDataArray& array) {
  const auto type = arrayTypeOf(array);
  if (!type) {
    throw FileError(FileIoStatus::WriteError,
                    fmt::format("The array \"{}\" is of a type ({}) that cannot be stored", nameOf(array),
                                array.GetClassName()));
  }
  const ChunkRow row{*type, static_cast<std::uint64_t>(array.GetNumberOfComponents()),
                     static_cast<std::uint64_t>(array.GetNumberOfTuples()), 0, 0};
  requireShape(row, FileIoStatus::WriteError);
  return row;
}

void writeRow(ByteWriter& out, const ChunkRow& row) {
  out.number(static_cast<std::uint64_t>(row.type));
  out.number(row.components);
  out.number(row.tuples);
  out.number(row.name);
  out.raw(row.hash);
}

ChunkRow readRow(ByteReader& in, std::uint64_t stringCount) {
  const std::uint64_t typeNumber = in.number("array type");
  const auto type = arrayTypeFromNumber(typeNumber);
  if (!type) {
    throw FileError(FileIoStatus::ReadError, fmt::format("Unknown array type {}", typeNumber));
  }
  ChunkRow row{};
  row.type = *type;
  row.components = in.number("array components");
  row.tuples = in.number("array tuples");
  requireShape(row, FileIoStatus::ReadError);
  row.name = in.index("array name", stringCount + 1);
  row.hash = in.raw<std::uint64_t>("array hash");
  return row;
}

}  // namespace lum::io
