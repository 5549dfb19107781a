#pragma once

#include <vemo/scenegraph/Export.h>

namespace lum {

class JsonWriter;
class Node;

/// Prints a node, with all that it owns, as one JSON object:
///
///     {"class": ..., "name": ..., "qualifiedName": ... (left out when never set),
///      "fields": {field: value, ...}, "nodes": [what it owns, in order]}
///
/// A field's value is a number, boolean or text, an array or object of these,
/// null when it was never set (a number that is not finite is null too), or
///
/// - an array of data: {"type": "float32", "components": 3, "tuples": 8,
///   "range": [min, max], "values": [...]}; the range is that of all its finite
///   values, null when there are none;
/// - cells: {"cells": n, "offsets": array, "connectivity": array};
/// - a reference: {"reference": path}, where the path is the names of the nodes
///   from below the printed root to the node referred to, with "/" between
///   them: "ModelCanvas/AttributesCollection/CameraAttributes". In a name "~"
///   is written "~0" and "/" "~1", and an empty name is written "~e"; the second
///   of several siblings of one name has "~#2" behind it, the third "~#3". The
///   root's path is empty; null stands for a node outside the printed
///   graph.
///
/// Needs no stack depth, and no memory except for the nodes from the root to the
/// one being printed and a few words for each large array.
class VEMO_SCENEGRAPH_EXPORT JsonPrinter {
 public:
  /// Whether arrays of data are printed with their values.
  enum class Values { LEFT_OUT, SHOWN };

  JsonPrinter(JsonWriter& json, Values values) : _json(json), _values(values) {}

  void print(const Node& root);

 private:
  JsonWriter& _json;
  Values _values;
};

}  // namespace lum
