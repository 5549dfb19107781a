#include "scenegraph/io/codec/TableReader.h"

#include "base/Utf8.h"
#include "scenegraph/io/codec/GraphFormat.h"
#include "scenegraph/io/codec/TableWriter.h"
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <fmt/format.h>

namespace lum::io {

namespace {

/// More of either are refused: they cost time for every node of the class,
/// however few bytes of the file it takes.
constexpr std::size_t MAX_FIELDS = 1024;
constexpr std::size_t MAX_DEFAULT_BYTES = 256;

/// Of all programs together, whatever their versions.
constexpr std::size_t MAX_CLASSES = 1024;

/// Empty lists are not in the table.
constexpr std::size_t MIN_LIST_BYTES = 1 + sizeof(double);

void requireAtMost(std::size_t most, std::size_t count, const char* owner, const char* what) {
  if (count > most) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("{} has {} {}, at most {} are allowed", owner, count, what, most));
  }
}

/// No array has such a name: it would get what is before the zero.
void requireArrayName(std::string_view name, std::size_t array) {
  if (name.find('\0') != std::string_view::npos) {
    throw FileError(FileIoStatus::ReadError, fmt::format("The name of array {} holds a zero byte", array));
  }
}

/// For the first of many tables, which is the only one in most files. What comes
/// later grows as vectors do.
template <class T>
void reserveFirst(std::vector<T>& table, std::size_t count) {
  if (table.empty()) {
    table.reserve(count);
  }
}

class NoArrays final : public ArraySink {
 public:
  void put(vtkDataArray& /*array*/, ChunkRow& /*row*/) override {}
};

std::size_t countTextBytes(ByteReader in, std::size_t textCount) {
  std::size_t bytes = 0;
  for (; textCount > 0; --textCount) {
    bytes += in.text("string").size();
  }
  return bytes;
}

FieldKind readKind(ByteReader& in) {
  const std::uint64_t number = in.number("field kind");
  const auto* const kind = std::ranges::find(FieldKinds::KINDS, number, &FieldKind::number);
  if (kind == FieldKinds::KINDS.end()) {
    throw FileError(FileIoStatus::UnsupportedFormat, fmt::format("Unknown field kind {}", number));
  }
  return *kind;
}

std::size_t readFieldCount(ByteReader& in) {
  const std::size_t count = in.count("fields", 3);
  requireAtMost(MAX_FIELDS, count, "A class", "fields");
  return count;
}

std::string readDefault(ByteReader& in) {
  const std::string_view value = in.text("default");
  requireAtMost(MAX_DEFAULT_BYTES, value.size(), "A default", "bytes");
  return std::string(value);
}

}  // namespace

SharedNumbers readList(ByteReader& in) {
  std::vector<double> numbers(in.count("numbers", sizeof(double)));
  const std::size_t bytes = sizeof(double) * numbers.size();
  std::ranges::copy(in.take(bytes, "numbers"), reinterpret_cast<char*>(numbers.data()));
  return numbers;
}

void TableReader::read(ByteReader& in, bool hasLists) {
  _hasLists = hasLists;
  std::size_t count = in.count("strings", 1);
  reserveFirst(_stringEnds, count);
  _text.reserve(_text.size() + countTextBytes(in, count));
  for (; count > 0; --count) {
    _text += in.text("string");
    _stringEnds.push_back(_text.size());
  }
  count = hasLists ? in.count("lists", MIN_LIST_BYTES) : 0;
  reserveFirst(_lists, count);
  for (; count > 0; --count) {
    _lists.push_back(readList(in));
  }
  count = in.count("classes", 2);
  requireAtMost(MAX_CLASSES, _classes.size() + count, "The file", "classes");
  for (; count > 0; --count) {
    _classes.push_back(readClass(in));
    if (!_classNumbers.emplace(_classes.back().name, _classes.size() - 1).second) {
      throw FileError(FileIoStatus::ReadError,
                      "Duplicate class in the class table: " + vemo::shortName(_classes.back().name));
    }
  }
  count = in.count("arrays", MIN_ROW_BYTES);
  reserveFirst(_chunks, count);
  for (; count > 0; --count) {
    const ChunkRow& row = _chunks.emplace_back(readRow(in, getStringCount()));
    if (row.name != 0) {
      const std::string_view name = getString(row.name - 1);
      _budget.useText(name);
      requireArrayName(name, _chunks.size() - 1);
    }
    if (row.tuples == 0) {
      _budget.use(ContentBudget::bytesOfEmptyArray(row.components));
    }
  }
}

const FileClass* TableReader::findClass(const std::string& name) const {
  const auto found = _classNumbers.find(name);
  return found != _classNumbers.end() ? &_classes[found->second] : nullptr;
}

FileClass TableReader::readClass(ByteReader& in) {
  FileClass result;
  result.name = getString(in.index("class name", getStringCount()));
  std::vector<std::size_t> names;
  std::size_t bits = FIRST_FIELD_BIT;
  for (std::size_t count = readFieldCount(in); count > 0; --count) {
    names.push_back(in.index("field name", getStringCount()));
    FileField field{readKind(in), FileField::NONE, readDefault(in), false};
    bits += isInRecord(field.kind) ? 1 : 0;
    result.fields.push_back(std::move(field));
  }
  result.presenceBytes = (bits + 7) / 8;
  matchFields(result, names);
  return result;
}

void TableReader::matchFields(FileClass& fileClass, const std::vector<std::size_t>& names) {
  fileClass.construct = findNodeConstructor(fileClass.name);
  if (fileClass.construct == nullptr) {
    return;
  }
  const Ptr<Node> fresh = fileClass.construct(ClassNameNodeInitializer(fileClass.name));
  FieldList own;
  fresh->listFields(own);
  NoArrays sink;
  for (std::size_t i = 0; i < names.size(); ++i) {
    FileField& field = fileClass.fields[i];
    std::size_t index = 0;
    for (const Field& candidate : own) {
      if (getString(names[i]) == candidate.name && kindOf(candidate.value) == field.kind) {
        field.index = index;
        // Numbers of strings differ from file to file: texts are always set.
        TableWriter tables(sink, false);
        ByteWriter value;
        writeValue(value, tables, candidate.value);
        field.mustSetDefault =
            field.defaultValue != value.view() || field.kind == FieldKinds::kindOf<std::string*>();
      }
      ++index;
    }
    if (field.index == FileField::NONE) {
      fileClass.unknownFields.push_back(names[i]);
    }
  }
}

}  // namespace lum::io
