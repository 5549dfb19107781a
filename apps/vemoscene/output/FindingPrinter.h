#pragma once

#include <vemo/scenegraph/Finding.h>

#include <vector>

namespace lum {
class JsonWriter;
}

namespace vemo {

/// Prints the member "findings" of a JSON object.
void printFindings(lum::JsonWriter& json, const std::vector<Finding>& findings);

}  // namespace vemo
