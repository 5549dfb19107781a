#pragma once

#include "scenegraph/io/bytes/ByteReader.h"
#include "scenegraph/io/bytes/ContentBudget.h"
#include "scenegraph/io/codec/TableReader.h"

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lum::io {

/// Reads the values of fields: one call for each row of FieldKinds.
class FieldReader {
 public:
  FieldReader(ByteReader& in, const TableReader& tables, ContentBudget& budget,
              std::vector<std::size_t>& chunks)
      : _in(in), _tables(tables), _budget(budget), _chunks(chunks) {}

  std::string_view readString();

  void operator()(bool* value);
  void operator()(std::int32_t* value);
  void operator()(std::uint32_t* value);
  void operator()(float* value) { *value = _in.raw<float>("number"); }
  void operator()(double* value) { *value = _in.raw<double>("number"); }
  void operator()(const EnumerationField& field);
  void operator()(std::string* value) { *value = readString(); }
  template <std::size_t N>
  void operator()(Vector<N, double>* value) {
    for (double& each : *value) {
      (*this)(&each);
    }
  }
  void operator()(SharedNumbers* value);
  template <class T>
  void operator()(std::optional<T>* value) {
    bool isSet = false;
    (*this)(&isSet);
    value->reset();
    if (isSet) {
      (*this)(&value->emplace());
    }
  }
  void operator()(std::map<std::string, Vector3>* value);
  // Arrays are bound later: their chunks are noted.
  void operator()(vtkSmartPointer<vtkDataArray>* value);
  void operator()(vtkSmartPointer<vtkCellArray>* value);
  void operator()(ArrayTable* value);
  void operator()(OwnedSlot* /*slot*/) {}
  void operator()(CollectionNode* /*collection*/) {}
  void operator()(ReferenceSlot* /*slot*/) {}

  /// Skips a value that is not needed.
  void skip(FieldKind kind);

 private:
  template <class T>
  void skip(std::type_identity<T*> /*type*/) {
    if constexpr (std::default_initializable<T>) {
      T unwanted{};
      (*this)(&unwanted);
    }
  }
  void skip(std::type_identity<EnumerationField> type);
  std::int32_t readEnumerator(std::int32_t count);
  void readChunk();

  ByteReader& _in;
  const TableReader& _tables;
  ContentBudget& _budget;
  std::vector<std::size_t>& _chunks;
};

}  // namespace lum::io
