#pragma once

#include <string>

namespace lum {

class Node;

/// Says which node it is, for messages: its class and the names from the root
/// down to it.
std::string describeNode(const Node& node);

}  // namespace lum
