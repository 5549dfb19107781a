#pragma once

#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/inspect/JsonPrinter.h>

#include <string>

namespace vemo {

/// A graph as text for comparison with what is expected: a line for each node,
/// below it those of its fields that are not as in a new node, then what it
/// owns, indented:
///
///     SurfaceDrawable "wing"
///       LineAttributes
///         lineWidth: 2.5
///
/// Names are left out where they are the class's. Of collections of attributes
/// only the content is printed, of long arrays only the range.
std::string graphText(const lum::Node& root);

/// The same as JSON.
std::string jsonText(const lum::Node& root,
                     lum::JsonPrinter::Values values = lum::JsonPrinter::Values::SHOWN);

}  // namespace vemo
