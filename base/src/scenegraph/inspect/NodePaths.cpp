#include "scenegraph/inspect/NodePaths.h"

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace lum {

std::string escapeStep(std::string_view name) {
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

/// The nodes from below the root down to this one.
std::optional<std::vector<const Node*>> NodePaths::getSteps(const Node& node) const {
  std::vector<const Node*> steps;
  for (const Node* next = &node; next != &_root; next = next->getOwner()) {
    if (next == nullptr) {
      return std::nullopt;
    }
    steps.push_back(next);
  }
  std::ranges::reverse(steps);
  return steps;
}

void NodePaths::print(JsonWriter& json, const Node& node) {
  const auto steps = getSteps(node);
  if (!steps) {
    json.null();
    return;
  }
  json.beginText();
  std::string_view separator;
  for (const Node* step : *steps) {
    json.appendText(separator);
    json.appendText(getStep(*step));
    separator = "/";
  }
  json.endText();
}

std::optional<std::string> NodePaths::getPath(const Node& node) {
  const auto steps = getSteps(node);
  if (!steps) {
    return std::nullopt;
  }
  std::string path;
  for (const Node* step : *steps) {
    path += path.empty() ? "" : "/";
    path += getStep(*step);
  }
  return path;
}

const Node* NodePaths::find(const Node& start, std::string_view path) {
  const Node* node = &start;
  std::size_t begin = 0;
  while (node != nullptr && !path.empty() && begin <= path.size()) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    node = findDependent(*node, path.substr(begin, end - begin));
    begin = end + 1;
  }
  return node;
}

const Node* NodePaths::findDependent(const Node& owner, std::string_view step) {
  const std::vector<Node*> dependents = owner.getDependents();
  const auto found =
      std::ranges::find_if(dependents, [&](const Node* node) { return getStep(*node) == step; });
  return found != dependents.end() ? *found : nullptr;
}

std::string NodePaths::getStep(const Node& node) {
  if (_numbered.insert(node.getOwner()).second) {
    numberDependents(*node.getOwner());
  }
  const auto number = _numbers.find(&node);
  return escapeStep(node.getName()) +
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
