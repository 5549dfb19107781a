#pragma once

#include <vemo/scenegraph/Export.h>

#include <string>

class vtkDataArray;

namespace lum {

// Descriptions of data arrays for users.

/// The type and number of components: "float32 x 3".
VEMO_SCENEGRAPH_EXPORT std::string describeType(vtkDataArray& array);

/// Instead of a component: the Euclidean lengths of the tuples.
inline constexpr int TUPLE_LENGTH = -1;

/// The least and greatest finite value of a component: "0.5 .. 3".
VEMO_SCENEGRAPH_EXPORT std::string describeRange(vtkDataArray& array, int component);

/// The ranges of x, y and z of an array with three components, else of the
/// lengths when it has several.
VEMO_SCENEGRAPH_EXPORT std::string describeRange(vtkDataArray& array);

}  // namespace lum
