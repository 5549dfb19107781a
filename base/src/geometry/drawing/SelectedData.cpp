#include "geometry/drawing/SelectedData.h"

#include "geometry/NewArray.h"

#include <vtkDataArray.h>
#include <vtkDataSetAttributes.h>
#include <vtkIdList.h>

namespace vemo {

vtkSmartPointer<vtkDataArray> selectTuples(vtkDataArray& array, vtkIdList& numbers) {
  auto selected = vtk::TakeSmartPointer(array.NewInstance());
  selected->SetName(array.GetName());
  selected->SetNumberOfComponents(array.GetNumberOfComponents());
  setTupleCount(*selected, numbers.GetNumberOfIds());
  array.GetTuples(&numbers, selected);
  return selected;
}

void selectData(vtkDataSetAttributes& from, vtkDataSetAttributes& to, vtkIdList& numbers) {
  for (int i = 0; i < from.GetNumberOfArrays(); ++i) {
    if (vtkDataArray* const array = from.GetArray(i)) {
      const int index = to.AddArray(selectTuples(*array, numbers));
      const int role = from.IsArrayAnAttribute(i);
      if (role >= 0) {
        to.SetActiveAttribute(index, role);
      }
    }
  }
}

}  // namespace vemo
