#include "scenegraph/io/ChunkRow.h"

#include "scenegraph/io/ByteReader.h"
#include "scenegraph/io/ByteWriter.h"
#include "scenegraph/io/FileError.h"

#include <vtkDataArray.h>

#include <fmt/format.h>
#include <limits>

namespace lum::io {

namespace {

constexpr std::uint64_t MAXIMUM_COMPONENTS = std::numeric_limits<int>::max();
// Far beyond any file, and far from overflowing.
constexpr std::uint64_t MAXIMUM_BYTES = std::uint64_t{1} << 60;

const char* nameOf(vtkDataArray& array) {
  return array.GetName() != nullptr ? array.GetName() : "";
}

}  // namespace

ChunkRow rowOf(vtkDataArray& array) {
  const auto type = arrayTypeOf(array);
  if (!type) {
    throw FileError(FileIoStatus::WriteError,
                    fmt::format("The array \"{}\" is of a type ({}) that cannot be stored", nameOf(array),
                                array.GetClassName()));
  }
  return {*type, static_cast<std::uint64_t>(array.GetNumberOfComponents()),
          static_cast<std::uint64_t>(array.GetNumberOfTuples()), 0, 0};
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
    throw FileError(FileIoStatus::ReadError, fmt::format("There is no array type of number {}", typeNumber));
  }
  ChunkRow row{};
  row.type = *type;
  row.components = in.number("array components");
  row.tuples = in.number("array tuples");
  if (row.components == 0 || row.components > MAXIMUM_COMPONENTS ||
      row.tuples > MAXIMUM_BYTES / (row.components * arrayTypeSize(row.type))) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("No array has {} tuples of {} components", row.tuples, row.components));
  }
  row.name = in.index("array name", stringCount + 1);
  row.hash = in.raw<std::uint64_t>("array hash");
  return row;
}

}  // namespace lum::io
