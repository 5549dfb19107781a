#include "scenegraph/inspect/NodePaths.h"

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace lum {

namespace {

std::string escapeName(const std::string& name) {
  if (name.empty()) {
    return "~e";
  }
  std::string escaped;
  escaped.reserve(name.size());
  for (const char character : name) {
    if (character == '~') {
      escaped += "~0";
    } else if (character == '/') {
      escaped += "~1";
    } else {
      escaped += character;
    }
  }
  return escaped;
}

}  // namespace

void NodePaths::print(JsonWriter& json, const Node& node) {
  std::vector<const Node*> steps;
  const Node* next = &node;
  for (; next != &_root && next != nullptr; next = next->getOwner()) {
    steps.push_back(next);
  }
  if (next == nullptr) {
    json.null();
    return;
  }
  std::ranges::reverse(steps);
  json.beginText();
  std::string_view separator;
  for (const Node* step : steps) {
    json.appendText(separator);
    json.appendText(getStep(*step));
    separator = "/";
  }
  json.endText();
}

std::string NodePaths::getStep(const Node& node) {
  if (_numbered.insert(node.getOwner()).second) {
    numberDependents(*node.getOwner());
  }
  const auto number = _numbers.find(&node);
  return escapeName(node.getName()) +
         (number != _numbers.end() ? "~#" + std::to_string(number->second) : std::string());
}

void NodePaths::numberDependents(const Node& owner) {
  std::unordered_map<std::string_view, std::size_t> counts;
  for (const Node* node : owner.getDependents()) {
    const std::size_t number = ++counts[node->getName()];
    if (number > 1) {
      _numbers[node] = number;
    }
  }
}

}  // namespace lum
