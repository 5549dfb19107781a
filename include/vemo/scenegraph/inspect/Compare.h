#pragma once

#include <vemo/scenegraph/Node.h>

#include <string>

namespace lum {

/// What first differs between two graphs, as a line that names the node and
/// the field; empty when they are equal. Equal graphs have the same classes,
/// names, qualified names and owned nodes in the same order; fields are equal
/// bit by bit (a NaN equals a NaN of the same bits), arrays by type,
/// components, name and bytes, references by the place of what they refer to.
VEMO_SCENEGRAPH_EXPORT std::string firstDifference(const Node& left, const Node& right);

}  // namespace lum
