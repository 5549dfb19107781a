#pragma once

#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/Attributes.h>
#include <vemo/scenegraph/attributes/ColorLookupTable.h>

namespace lum {

/// Which data array colours a drawable, and what a reader is told of it.
class VEMO_SCENEGRAPH_EXPORT DataArrayAttributes final : public Node {
  using Range = Vector<2, double>;
  LUM_NODE(DataArrayAttributes, Node)
  LUM_VALUE(std::string, DataArrayName, _dataArrayName, {})
  LUM_VALUE(Range, Range, _range, {0.0, 1.0})
  LUM_VALUE(std::string, DataArrayPresentationName, _dataArrayPresentationName, {})

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("dataArrayName", _dataArrayName);
    fields.add("range", _range);
    fields.add("dataArrayPresentationName", _dataArrayPresentationName);
  }
};

/// Colouring by data: the array and the colours for its values.
class VEMO_SCENEGRAPH_EXPORT ScalarAttributes final : public Attributes {
  LUM_NODE(ScalarAttributes, Attributes)

 public:
  /// Both are made when they are first asked for.
  ColorLookupTable& getColorLookupTable() { return _colorLookupTable.ensure(*this); }
  DataArrayAttributes& getDataArray() { return _dataArray.ensure(*this); }

  /// Null when there is none.
  ColorLookupTable* hasColorLookupTable() const { return _colorLookupTable.get(); }
  DataArrayAttributes* hasDataArray() const { return _dataArray.get(); }

  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.add("colorLookupTable", _colorLookupTable);
    fields.add("dataArray", _dataArray);
  }

 private:
  Owned<ColorLookupTable> _colorLookupTable;
  Owned<DataArrayAttributes> _dataArray;
};

enum class DataLocation : std::int32_t { CELLS = 0, POINTS = 1 };

/// Whether the data array that colours a drawable has a value for each cell or
/// for each point.
class VEMO_SCENEGRAPH_EXPORT DataLocationAttributes final : public Attributes {
  LUM_NODE(DataLocationAttributes, Attributes)
  LUM_ENUMERATION(DataLocation, DataLocation, _dataLocation, DataLocation::POINTS)

 public:
  void listFields(FieldList& fields) override {
    Superclass::listFields(fields);
    fields.addEnumeration("dataLocation", _dataLocation, DataLocation::POINTS);
  }
};

}  // namespace lum
