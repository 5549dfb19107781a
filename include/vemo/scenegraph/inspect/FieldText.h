#pragma once

#include <vemo/scenegraph/Export.h>

#include <string>

namespace lum {

class Node;
struct Field;

/// A short description of a field's value for users: enumerators by name, colours as
/// #rrggbb, long lists by their length. Empty for owned nodes, arrays of data,
/// and values that were never set.
VEMO_SCENEGRAPH_EXPORT std::string describeField(const Field& field);

/// All such fields of a node: "size (1, 1), erase yes".
VEMO_SCENEGRAPH_EXPORT std::string describeFields(const Node& node);

}  // namespace lum
