#include "geometry/drawing/SelectedData.h"

#include "geometry/NewArray.h"
#include "geometry/data/NamedArrays.h"

#include <vtkDataArray.h>
#include <vtkDataSetAttributes.h>
#include <vtkIdList.h>

namespace vemo {

namespace {

vtkSmartPointer<vtkDataArray> makeLike(vtkDataArray& array, int components, vtkIdType tuples) {
  auto result = vtk::TakeSmartPointer(array.NewInstance());
  result->SetName(array.GetName());
  result->SetNumberOfComponents(components);
  setTupleCount(*result, tuples);
  return result;
}

}  // namespace

vtkSmartPointer<vtkDataArray> selectTuples(vtkDataArray& array, vtkIdList& numbers) {
  auto selected = makeLike(array, array.GetNumberOfComponents(), numbers.GetNumberOfIds());
  array.GetTuples(&numbers, selected);
  return selected;
}

vtkSmartPointer<vtkDataArray> selectFirstComponent(vtkDataArray& array, vtkIdList& numbers) {
  auto selected = makeLike(array, 1, numbers.GetNumberOfIds());
  for (vtkIdType i = 0; i < numbers.GetNumberOfIds(); ++i) {
    selected->SetComponent(i, 0, array.GetComponent(numbers.GetId(i), 0));
  }
  return selected;
}

void selectData(vtkDataSetAttributes& from, vtkDataSetAttributes& to, vtkIdList& numbers) {
  NamedArrays selected;
  for (int i = 0; i < from.GetNumberOfArrays(); ++i) {
    if (vtkDataArray* const array = from.GetArray(i)) {
      selected.put(*selectTuples(*array, numbers));
    }
  }
  selected.addTo(to);
  for (int role = 0; role < vtkDataSetAttributes::NUM_ATTRIBUTES; ++role) {
    if (vtkAbstractArray* const array = from.GetAbstractAttribute(role)) {
      to.SetActiveAttribute(array->GetName(), role);
    }
  }
}

}  // namespace vemo
