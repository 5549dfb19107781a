#include "scenegraph/io/codec/ValueReader.h"

#include "scenegraph/io/codec/TableWriter.h"
#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>
#include <limits>

namespace lum::io {

namespace {

/// A place for a value of each kind that nobody wants.
class Unwanted {
 public:
  FieldValue placeOf(FieldKind kind) {
    switch (kind) {
      case FieldKind::BOOLEAN:
        return &_boolean;
      case FieldKind::INT32:
        return &_int32;
      case FieldKind::UINT32:
        return &_uint32;
      case FieldKind::FLOAT32:
        return &_float32;
      case FieldKind::FLOAT64:
        return &_float64;
      case FieldKind::ENUMERATION:
        return EnumerationField{&_int32, std::numeric_limits<std::int32_t>::max()};
      case FieldKind::TEXT:
        return &_text;
      case FieldKind::VECTOR2:
        return &_vector2;
      case FieldKind::VECTOR3:
        return &_vector3;
      case FieldKind::VECTOR4:
        return &_vector4;
      case FieldKind::NUMBERS:
        return &_numbers;
      case FieldKind::OPTIONAL_FLOAT64:
        return &_optionalFloat64;
      case FieldKind::OPTIONAL_VECTOR3:
        return &_optionalVector3;
      case FieldKind::KEYED_VECTOR3:
        return &_keyed;
      default:
        return placeOfArrays(kind);
    }
  }

 private:
  // Nothing is ever put there.
  static FieldValue placeOfArrays(FieldKind kind) {
    switch (kind) {
      case FieldKind::ARRAY:
        return static_cast<vtkSmartPointer<vtkDataArray>*>(nullptr);
      case FieldKind::CELLS:
        return static_cast<vtkSmartPointer<vtkCellArray>*>(nullptr);
      case FieldKind::ARRAY_TABLE:
        return static_cast<ArrayTable*>(nullptr);
      default:
        return static_cast<OwnedSlot*>(nullptr);
    }
  }

  bool _boolean = false;
  std::int32_t _int32 = 0;
  std::uint32_t _uint32 = 0;
  float _float32 = 0;
  double _float64 = 0;
  std::string _text;
  Vector<2, double> _vector2;
  Vector<3, double> _vector3;
  Vector<4, double> _vector4;
  std::vector<double> _numbers;
  std::optional<double> _optionalFloat64;
  std::optional<Vector<3, double>> _optionalVector3;
  std::map<std::string, Vector<3, double>> _keyed;
};

}  // namespace

const std::string& ValueReader::readString() {
  const std::string& text = _tables.getString(_in.index("string", _tables.getStringCount()));
  if (text.size() > LONGEST_SHARED_STRING) {
    _longStringBytes += text.size();
    if (_longStringBytes > _tables.getLongStringBytes()) {
      throw FileError(FileIoStatus::ReadError, "A long string is used more than once");
    }
  }
  return text;
}

void ValueReader::operator()(bool* value) {
  *value = _in.index("boolean", 2) == 1;
}

void ValueReader::operator()(std::int32_t* value) {
  const std::int64_t number = _in.signedNumber("number");
  *value = static_cast<std::int32_t>(number);
  if (*value != number) {
    throw FileError(FileIoStatus::ReadError, fmt::format("{} is no 32-bit number", number));
  }
}

void ValueReader::operator()(std::uint32_t* value) {
  *value = static_cast<std::uint32_t>(_in.index("number", std::size_t{1} << 32));
}

void ValueReader::operator()(const EnumerationField& field) {
  *field.value = static_cast<std::int32_t>(_in.index("enumeration", static_cast<std::size_t>(field.count)));
}

void ValueReader::operator()(std::vector<double>* value) {
  value->resize(_in.count("numbers", sizeof(double)));
  for (double& each : *value) {
    (*this)(&each);
  }
}

void ValueReader::operator()(std::map<std::string, Vector<3, double>>* value) {
  value->clear();
  for (std::size_t count = _in.count("keys", 1 + 3 * sizeof(double)); count > 0; --count) {
    const std::string& key = readString();
    const std::size_t before = value->size();
    const auto place = value->try_emplace(value->end(), key);
    if (value->size() == before || std::next(place) != value->end()) {
      throw FileError(FileIoStatus::ReadError, "Keys are not in order: " + key);
    }
    (*this)(&place->second);
  }
}

void ValueReader::operator()(vtkSmartPointer<vtkDataArray>* /*value*/) {
  readChunk();
}

void ValueReader::operator()(vtkSmartPointer<vtkCellArray>* /*value*/) {
  readChunk();
  readChunk();
}

void ValueReader::operator()(ArrayTable* /*value*/) {
  for (std::size_t count = _in.count("arrays", 1); count > 0; --count) {
    readChunk();
  }
}

void ValueReader::readChunk() {
  _chunks.push_back(_in.index("array", _tables.getChunks().size()));
}

void ValueReader::skip(FieldKind kind) {
  Unwanted unwanted;
  std::visit(*this, unwanted.placeOf(kind));
}

}  // namespace lum::io
