#include "scenegraph/io/codec/FieldReader.h"

#include "geometry/PolyDataValidator.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/io/FileError.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <fmt/format.h>
#include <limits>

namespace lum::io {

std::string_view FieldReader::readString() {
  const std::string_view text = _tables.getString(_in.index("string", _tables.getStringCount()));
  _budget.useText(text);
  return text;
}

void FieldReader::operator()(bool* value) {
  *value = _in.index("boolean", 2) == 1;
}

void FieldReader::operator()(std::int32_t* value) {
  const std::int64_t number = _in.signedNumber("number");
  *value = static_cast<std::int32_t>(number);
  if (*value != number) {
    throw FileError(FileIoStatus::ReadError, fmt::format("{} does not fit in 32 bits", number));
  }
}

void FieldReader::operator()(std::uint32_t* value) {
  *value = static_cast<std::uint32_t>(_in.index("number", std::size_t{1} << 32));
}

void FieldReader::operator()(const EnumerationField& field) {
  *field.value = readEnumerator(field.count());
}

std::int32_t FieldReader::readEnumerator(std::int32_t count) {
  return static_cast<std::int32_t>(_in.index("enumeration", static_cast<std::size_t>(count)));
}

void FieldReader::operator()(SharedNumbers* value) {
  if (!_tables.hasLists()) {
    *value = readList(_in);
    _budget.use(sizeof(double) * value->get().size());
    return;
  }
  const std::size_t number = _in.index("list", 1 + _tables.getLists().size());
  *value = number > 0 ? _tables.getLists()[number - 1] : SharedNumbers();
}

void FieldReader::operator()(std::map<std::string, Vector3>* value) {
  // An entry and its place in the tree.
  constexpr std::size_t ENTRY_SIZE = sizeof(std::pair<std::string, Vector3>) + 6 * sizeof(void*);
  value->clear();
  for (std::size_t count = _in.count("keys", 1 + 3 * sizeof(double)); count > 0; --count) {
    const std::string key(readString());
    _budget.use(ENTRY_SIZE);
    const std::size_t before = value->size();
    const auto entry = value->try_emplace(value->end(), key);
    if (value->size() == before || std::next(entry) != value->end()) {
      throw FileError(FileIoStatus::ReadError, "Keys are not in order: " + key);
    }
    (*this)(&entry->second);
  }
}

void FieldReader::operator()(vtkSmartPointer<vtkDataArray>* /*value*/) {
  readChunk();
}

void FieldReader::operator()(vtkSmartPointer<vtkCellArray>* /*value*/) {
  readChunk();
  readChunk();
}

void FieldReader::operator()(ArrayTable* /*value*/) {
  std::size_t count = _in.count("arrays", 1);
  // Each takes a byte of the file and forty of memory.
  if (count > vemo::MAX_DATA_ARRAYS) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{} data arrays, at most {} are allowed", count, vemo::MAX_DATA_ARRAYS));
  }
  for (; count > 0; --count) {
    readChunk();
  }
}

void FieldReader::readChunk() {
  _chunks.push_back(_in.index("array", _tables.getChunks().size()));
}

void FieldReader::skip(FieldKind kind) {
  FieldKinds::visitType(kind, [this](auto type) { skip(type); });
}

/// How many there are is unknown: only an enumeration that this program does
/// not have is skipped.
void FieldReader::skip(std::type_identity<EnumerationField> /*type*/) {
  readEnumerator(std::numeric_limits<std::int32_t>::max());
}

}  // namespace lum::io
