#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lum {

class Node;

struct ComparisonRules {
  /// Floating-point numbers are equal when |a - b| <= tolerance * max(1, |a|, |b|):
  /// the tolerance is absolute up to 1 and relative above. NaN equals NaN, and an
  /// infinity only itself. All other numbers are exact.
  double tolerance = 0.0;
  /// Distinguishes whatever a file can keep apart, and ignores the tolerance: the
  /// bits of numbers, the widths in which cells are stored, the names of points,
  /// and the order of attributes and data arrays.
  bool isBitwise = false;
};

/// The value of one side; empty where it has none. Enumerators, packed
/// colours and flags, and descriptions of nodes or whole arrays, are texts.
using ComparedValue = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, float, double,
                                   std::string, std::vector<double>, std::vector<std::int64_t>>;

struct Difference {
  /// How far lists of the same length differ.
  struct Extent {
    /// How many values or cells differ, of how many.
    std::int64_t count = 0;
    std::int64_t total = 0;
    /// The tuple and component of the value that differs most, or the first cell
    /// that differs. `left` and `right` are its values.
    std::int64_t index = 0;
    std::optional<int> component = std::nullopt;
    /// The tolerance at which that value would be equal; infinite if none is
    /// enough, nothing for cells.
    std::optional<double> deviation = std::nullopt;
  };

  /// Of the node, as JsonPrinter.h describes it: in the left graph, or in the
  /// right one if only that has the node.
  std::string path;
  /// A field, or a part of it: `opacity`, `nodeDataArrays["heat"]`; or "node" for
  /// one that only one side has, "class", "name", "qualifiedName", or "position"
  /// among its siblings.
  std::string what;
  ComparedValue left;
  ComparedValue right;
  std::optional<Extent> extent;
};

/// What was compared of two graphs.
struct ComparisonCounts {
  /// Nodes that are in both.
  std::size_t nodes = 0;
  /// Arrays of data and lists of cells that both have, each node's own.
  std::size_t arrays = 0;
};

/// Receives a difference; returns whether to go on.
using DifferenceSink = std::function<bool(const Difference&)>;

/// Compares two graphs and all that they own, from the owners to the owned.
///
/// The roots are compared with each other; nodes in the same slot, too. Nodes of
/// a collection are compared with those of their class and name, the first with
/// the first and so on; any others are only on one side. Their order matters but
/// for attributes. Data arrays are found by their names. References are equal when
/// they lead to nodes that were compared with each other.
///
/// Needs no stack depth. Takes time in proportion to the graphs, however many
/// siblings there are.
VEMO_SCENEGRAPH_EXPORT ComparisonCounts compareGraphs(const Node& left, const Node& right,
                                                      const ComparisonRules& rules,
                                                      const DifferenceSink& sink);

/// The difference as one line: "PATH: WHAT: 1 against 2". Numbers have as many
/// digits as are needed to tell them apart; long texts and lists are shortened.
VEMO_SCENEGRAPH_EXPORT std::string describeDifference(const Difference& difference);

/// The first difference between two graphs that are compared bitwise, as such a
/// line; empty when they are equal.
VEMO_SCENEGRAPH_EXPORT std::string firstDifference(const Node& left, const Node& right);

}  // namespace lum
