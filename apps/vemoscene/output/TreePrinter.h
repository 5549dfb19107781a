#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace lum {
class Node;
class PolyDataNode;
}  // namespace lum

namespace vemo {

/// Prints a node graph for a person: a line for each node, what it owns below
/// it, the fields of siblings in a column. Of many siblings only the first are
/// shown.
class TreePrinter {
 public:
  explicit TreePrinter(std::ostream& out) : _out(out) {}

  void print(const lum::Node& root);

 private:
  /// A node's children as they are printed, and how wide the first column is.
  struct Level {
    std::vector<const lum::Node*> nodes;
    std::size_t width = 0;
    std::size_t next = 0;
  };

  Level makeLevel(const lum::Node& owner) const;
  void printNode(const lum::Node& node, std::size_t depth, std::size_t width);
  void printGeometry(const lum::PolyDataNode& node, std::size_t depth);
  void printRows(const std::vector<std::vector<std::string>>& rows, std::size_t depth);

  std::ostream& _out;
};

}  // namespace vemo
