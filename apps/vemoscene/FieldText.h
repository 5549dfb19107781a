#pragma once

#include <cstdint>
#include <string>

class vtkDataArray;
namespace lum {
class Node;
struct Field;
}  // namespace lum

namespace vemo {

/// A field's value in a few words for a person: enumerators by name, colours as
/// #rrggbb, long lists by their length. Empty for what is told otherwise: owned
/// nodes, arrays of data, and what was never set.
std::string describeField(const lum::Node& node, const lum::Field& field);

/// All such fields of a node: "size (1, 1), erase yes".
std::string describeFields(const lum::Node& node);

/// What kind of values an array holds: "float32 x 3".
std::string describeType(const vtkDataArray& array);

/// Between which values an array's finite ones lie: those of x, y and z when it
/// has three components, else, when it has several, their lengths.
std::string describeRange(vtkDataArray& array);

/// 1234567 -> "1,234,567".
std::string groupDigits(std::int64_t count);

/// "12.3 MiB"; below 1 KiB "12 bytes".
std::string describeSize(double bytes);

}  // namespace vemo
