#include "scenegraph/io/codec/TableWriter.h"

#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/io/FileError.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace lum::io {

namespace {

/// One call for each row of FieldKinds.
class ValueWriter {
 public:
  ValueWriter(ByteWriter& out, TableWriter& tables) : _out(out), _tables(tables) {}

  void operator()(const bool* value) const { _out.number(*value ? 1 : 0); }
  void operator()(const std::int32_t* value) const { _out.signedNumber(*value); }
  void operator()(const std::uint32_t* value) const { _out.number(*value); }
  void operator()(const float* value) const { _out.raw(*value); }
  void operator()(const double* value) const { _out.raw(*value); }
  void operator()(const EnumerationField& field) const {
    _out.number(static_cast<std::uint64_t>(*field.value));
  }
  void operator()(const std::string* value) const { _out.number(_tables.addString(*value)); }
  template <std::size_t N>
  void operator()(const Vector<N, double>* value) const {
    _out.bytes(value->data(), sizeof(double) * N);
  }
  void operator()(const SharedNumbers* value) const {
    _out.number(value->get().empty() ? 0 : 1 + _tables.addList(*value));
  }
  template <class T>
  void operator()(const std::optional<T>* value) const {
    _out.number(value->has_value() ? 1 : 0);
    if (*value) {
      (*this)(&**value);
    }
  }
  void operator()(const std::map<std::string, Vector<3, double>>* value) const {
    _out.number(value->size());
    for (const auto& [key, vector] : *value) {
      (*this)(&key);
      (*this)(&vector);
    }
  }
  void operator()(const vtkSmartPointer<vtkDataArray>* value) const {
    if (*value) {
      _out.number(_tables.addArray(**value, isShared(**value)));
    }
  }
  void operator()(const vtkSmartPointer<vtkCellArray>* value) const {
    if (vtkCellArray* cells = *value) {
      for (vtkDataArray* array : {cells->GetOffsetsArray(), cells->GetConnectivityArray()}) {
        _out.number(_tables.addArray(*array, isShared(*cells) || isShared(*array)));
      }
    }
  }
  void operator()(const ArrayTable* value) const {
    if (!value->empty()) {
      _out.number(value->size());
      for (const auto& array : *value) {
        (*this)(&array);
      }
    }
  }
  void operator()(const OwnedSlot*) const {}
  void operator()(const CollectionNode*) const {}
  void operator()(const ReferenceSlot*) const {}

 private:
  static bool isShared(vtkObjectBase& object) { return object.GetReferenceCount() > 1; }

  ByteWriter& _out;
  TableWriter& _tables;
};

}  // namespace

void writeValue(ByteWriter& out, TableWriter& tables, const FieldValue& value) {
  std::visit(ValueWriter(out, tables), value);
}

const TableWriter::Class& TableWriter::getClass(Node& node) {
  const std::type_index type(typeid(node));
  const auto known = _classes.find(type);
  return known != _classes.end() ? known->second : _classes.emplace(type, addClass(node)).first->second;
}

TableWriter::Class TableWriter::addClass(Node& node) {
  const Ptr<Node> fresh = createNode(ClassNameNodeInitializer(node.className()));
  if (!fresh) {
    throw FileError(FileIoStatus::WriteError, "Nodes of class " + node.className() + " cannot be stored");
  }
  Class result{_classes.size(), addString(node.className()), false, {}};
  FieldList fields;
  fresh->listFields(fields);
  ByteWriter row;
  row.number(result.name);
  row.number(fields.size());
  for (const Field& field : fields) {
    const FieldKind kind = kindOf(field.value);
    ByteWriter value;
    writeValue(value, *this, field.value);
    row.number(addString(field.name));
    row.number(kind.number);
    row.text(value.view());
    result.defaults.emplace_back(value.view());
    result.hasArrays = result.hasArrays || kind.content == FieldContent::ARRAYS;
  }
  _classRows.rows.bytes(row.view().data(), row.size());
  ++_classRows.count;
  return result;
}

std::uint64_t TableWriter::addString(std::string_view text) {
  if (text.size() <= MAX_SHARED_STRING_BYTES) {
    const auto known = _sharedStrings.find(text);
    if (known != _sharedStrings.end()) {
      return known->second;
    }
    _sharedStrings.emplace(text, _stringCount);
  }
  _strings.rows.text(text);
  ++_strings.count;
  return _stringCount++;
}

std::uint64_t TableWriter::addList(const SharedNumbers& list) {
  const auto [known, isNew] = _listNumbers.try_emplace(list.get().data(), list, _listNumbers.size());
  if (isNew) {
    _lists.rows.number(list.get().size());
    _lists.rows.bytes(list.get().data(), sizeof(double) * list.get().size());
    ++_lists.count;
  }
  return known->second.second;
}

std::uint64_t TableWriter::addArray(vtkDataArray& array, bool shared) {
  if (!shared && !_rememberAll) {
    return writeArray(array);
  }
  const auto known = _arrays.find(&array);
  if (known != _arrays.end() && known->second.time == array.GetMTime()) {
    return known->second.number;
  }
  const std::uint64_t number = writeArray(array);
  if (known != _arrays.end()) {
    _released.push_back(known->second.number);
  }
  _arrays[&array] = {&array, array.GetMTime(), number};
  return number;
}

std::vector<std::uint64_t> TableWriter::takeReleased() {
  std::erase_if(_arrays, [this](const auto& entry) {
    const KnownArray& known = entry.second;
    const bool isGone = known.array == nullptr || known.array->GetMTime() != known.time;
    if (isGone) {
      _released.push_back(known.number);
    }
    return isGone;
  });
  std::ranges::sort(_released);
  return std::exchange(_released, {});
}

std::uint64_t TableWriter::writeArray(vtkDataArray& array) {
  ChunkRow row = rowOf(array);
  row.name = array.GetName() != nullptr ? addString(array.GetName()) + 1 : 0;
  _sink.put(array, row);
  writeRow(_chunks.rows, row);
  ++_chunks.count;
  return _arrayCount++;
}

void TableWriter::Table::take(ByteWriter& out) {
  // Released with what is in them: tables may be large.
  const ByteWriter taken = std::exchange(rows, {});
  out.number(std::exchange(count, 0));
  out.bytes(taken.view().data(), taken.size());
}

void TableWriter::take(ByteWriter& out) {
  _strings.take(out);
  _lists.take(out);
  _classRows.take(out);
  _chunks.take(out);
}

}  // namespace lum::io
