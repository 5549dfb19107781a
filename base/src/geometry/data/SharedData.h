#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkDataSetAttributes;
class vtkPolyData;

namespace vemo {

/// As to.ShallowCopy(&from), but in time in proportion to the arrays: a data set looks through the names of
/// all of them whenever it gets one.
VEMO_GEOMETRY_EXPORT void shareArrays(vtkDataSetAttributes& from, vtkDataSetAttributes& to);

/// The same for a poly data.
VEMO_GEOMETRY_EXPORT vtkSmartPointer<vtkPolyData> shallowCopy(vtkPolyData& geometry);

}  // namespace vemo
