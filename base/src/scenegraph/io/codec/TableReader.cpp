#include "scenegraph/io/codec/TableReader.h"

#include "scenegraph/io/codec/GraphFormat.h"
#include "scenegraph/io/codec/TableWriter.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <fmt/format.h>

namespace lum::io {

namespace {

/// More of either are refused: they cost time for every node of the class,
/// however few bytes of the file it takes.
constexpr std::size_t MAX_FIELDS = 1024;
constexpr std::size_t MAX_DEFAULT_BYTES = 256;

class NoArrays final : public ArraySink {
 public:
  void put(vtkDataArray& /*array*/, ChunkRow& /*row*/) override {}
};

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
  if (count > MAX_FIELDS) {
    throw FileError(FileIoStatus::ReadError,
                    fmt::format("A class has {} fields, at most {} are allowed", count, MAX_FIELDS));
  }
  return count;
}

std::string readDefault(ByteReader& in) {
  const std::string_view value = in.text("default");
  if (value.size() > MAX_DEFAULT_BYTES) {
    throw FileError(FileIoStatus::ReadError, fmt::format("A default has {} bytes, at most {} are allowed",
                                                         value.size(), MAX_DEFAULT_BYTES));
  }
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
  _strings.reserve(_strings.size() + count);
  for (; count > 0; --count) {
    _strings.emplace_back(in.text("string"));
    _longStringBytes += _strings.back().size() > MAX_SHARED_STRING_BYTES ? _strings.back().size() : 0;
  }
  for (count = hasLists ? in.count("lists", 1) : 0; count > 0; --count) {
    _lists.push_back(readList(in));
  }
  for (count = in.count("classes", 2); count > 0; --count) {
    _classes.push_back(readClass(in));
    if (!_classNumbers.emplace(_classes.back().name, _classes.size() - 1).second) {
      throw FileError(FileIoStatus::ReadError, "Duplicate class in the class table: " + _classes.back().name);
    }
  }
  count = in.count("arrays", MIN_ROW_BYTES);
  _chunks.reserve(_chunks.size() + count);
  for (; count > 0; --count) {
    _chunks.push_back(readRow(in, _strings.size()));
  }
}

const FileClass* TableReader::findClass(const std::string& name) const {
  const auto found = _classNumbers.find(name);
  return found != _classNumbers.end() ? &_classes[found->second] : nullptr;
}

FileClass TableReader::readClass(ByteReader& in) {
  FileClass result;
  result.name = _strings[in.index("class name", _strings.size())];
  std::vector<std::string> names;
  std::size_t bits = FIRST_FIELD_BIT;
  for (std::size_t count = readFieldCount(in); count > 0; --count) {
    names.push_back(_strings[in.index("field name", _strings.size())]);
    FileField field{readKind(in), FileField::NONE, readDefault(in), false};
    bits += isInRecord(field.kind) ? 1 : 0;
    result.fields.push_back(std::move(field));
  }
  result.presenceBytes = (bits + 7) / 8;
  matchFields(result, names);
  return result;
}

void TableReader::matchFields(FileClass& fileClass, const std::vector<std::string>& names) {
  fileClass.construct = findNodeConstructor(fileClass.name);
  if (fileClass.construct == nullptr) {
    vemo::reportFinding(vemo::FindingCode::CLASS_UNKNOWN, "The file has nodes of class " + fileClass.name +
                                                              ", which is unknown here; they are left out");
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
      if (names[i] == candidate.name && kindOf(candidate.value) == field.kind) {
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
      vemo::reportFinding(
          vemo::FindingCode::FIELD_UNKNOWN,
          "The field " + names[i] + " of class " + fileClass.name + " is unknown here; it is left out");
    }
  }
}

}  // namespace lum::io
