#pragma once

#include <string>

namespace lum {

class Node;

/// Identifies a node in messages: its class, and the names from the root down
/// to it.
std::string describeNode(const Node& node);

}  // namespace lum
