#include "output/TreePrinter.h"

#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/attributes/BaseAttributes.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/inspect/ArrayText.h>
#include <vemo/scenegraph/inspect/FieldText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>

#include <algorithm>
#include <fmt/format.h>

namespace vemo {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t INDENT = 2;
constexpr std::size_t MAX_SIBLINGS = 30;
constexpr std::size_t MAX_COLUMN = 40;

std::string getTitle(const lum::Node& node) {
  std::string title = node.className();
  if (!node.getName().empty() && node.getName() != node.className()) {
    title += fmt::format(" \"{}\"", toPrintableLine(node.getName()));
  }
  const auto* const drawable = dynamic_cast<const lum::Drawable*>(&node);
  const auto* const base = drawable != nullptr ? drawable->findAttributes<lum::BaseAttributes>() : nullptr;
  if (base != nullptr && !base->getVisibility()) {
    title += " (hidden)";
  }
  return title;
}

void addArrays(Rows& rows, const char* place, const lum::ArrayTable& table) {
  for (const auto& array : table) {
    const std::string name = array->GetName() != nullptr ? array->GetName() : "";
    rows.push_back({place, fmt::format("\"{}\"", toPrintableLine(name)), lum::describeType(*array),
                    lum::describeRange(*array)});
  }
}

}  // namespace

void TreePrinter::print(const lum::Node& root) {
  printNode(root, 0, 0);
  std::vector<Level> levels{makeLevel(root)};
  while (!levels.empty()) {
    const std::size_t depth = levels.size();
    Level& level = levels.back();
    const std::size_t left = level.nodes.size() - level.next;
    if (left == 0 || level.next == MAX_SIBLINGS) {
      if (left > 0) {
        _out << fmt::format("{:{}}... and {} more\n", "", INDENT * depth,
                            lum::groupDigits(static_cast<std::int64_t>(left)));
      }
      levels.pop_back();
      continue;
    }
    const lum::Node& node = *level.nodes[level.next++];
    printNode(node, depth, level.width);
    levels.push_back(makeLevel(node));
  }
}

/// An attributes collection is skipped: its nodes are printed in its place.
TreePrinter::Level TreePrinter::makeLevel(const lum::Node& owner) const {
  Level level;
  for (const lum::Node* node : owner.getDependents()) {
    if (dynamic_cast<const lum::AttributesCollection*>(node) != nullptr) {
      const std::vector<lum::Node*> attributes = node->getDependents();
      level.nodes.insert(level.nodes.end(), attributes.begin(), attributes.end());
    } else {
      level.nodes.push_back(node);
    }
  }
  const auto shown = std::min(level.nodes.size(), MAX_SIBLINGS);
  for (std::size_t i = 0; i < shown; ++i) {
    if (!lum::describeFields(*level.nodes[i]).empty()) {
      level.width = std::clamp(getTitle(*level.nodes[i]).size(), level.width, MAX_COLUMN);
    }
  }
  return level;
}

void TreePrinter::printNode(const lum::Node& node, std::size_t depth, std::size_t width) {
  const std::string fields = lum::describeFields(node);
  _out << fmt::format("{:{}}", "", INDENT * depth);
  if (fields.empty()) {
    _out << getTitle(node) << '\n';
  } else {
    _out << fmt::format("{:{}}  {}\n", getTitle(node), width, fields);
  }
  if (const auto* geometry = dynamic_cast<const lum::PolyDataNode*>(&node)) {
    printGeometry(*geometry, depth + 1);
  }
}

void TreePrinter::printGeometry(const lum::PolyDataNode& node, std::size_t depth) {
  Rows counts;
  if (vtkDataArray* points = node.getPoints()) {
    counts.push_back({"points", lum::groupDigits(points->GetNumberOfTuples()), lum::describeType(*points),
                      lum::describeRange(*points)});
  }
  for (const CellKind kind : FILE_CELL_KINDS) {
    if (const vtkCellArray* const cells = node.getCells(kind)) {
      counts.push_back({traitsOf(kind).name, lum::groupDigits(cells->GetNumberOfCells())});
    }
  }
  printRows(counts, depth);
  Rows arrays;
  addArrays(arrays, "point data", node.getNodeDataArrays());
  addArrays(arrays, "cell data", node.getCellDataArrays());
  printRows(arrays, depth);
}

void TreePrinter::printRows(const Rows& rows, std::size_t depth) {
  // Wide enough for "point data", so that the tables of a node stand alike.
  std::vector<std::size_t> widths{10};
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::clamp(row[i].size(), widths[i], MAX_COLUMN);
    }
  }
  for (const auto& row : rows) {
    std::string line(INDENT * depth, ' ');
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += i + 1 < row.size() ? fmt::format("{:{}}  ", row[i], widths[i]) : row[i];
    }
    _out << line << '\n';
  }
}

}  // namespace vemo
