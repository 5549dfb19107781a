#pragma once

#include <vemo/geometry/Export.h>

#include <vtkSmartPointer.h>

class vtkDataArray;
class vtkDataSetAttributes;
class vtkIdList;

namespace vemo {

/// A copy of the tuples with these numbers, in their order.
vtkSmartPointer<vtkDataArray> selectTuples(vtkDataArray& array, vtkIdList& numbers);

/// A copy of the first component of the tuples with these numbers.
vtkSmartPointer<vtkDataArray> selectFirstComponent(vtkDataArray& array, vtkIdList& numbers);

/// Adds copies of these tuples of all arrays, which have the same roles.
VEMO_GEOMETRY_EXPORT void selectData(vtkDataSetAttributes& from, vtkDataSetAttributes& to,
                                     vtkIdList& numbers);

}  // namespace vemo
