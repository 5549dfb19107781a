#include "vemoview/import/geometry/SparePolyData.h"

#include <vtkPolyData.h>

#include <utility>

namespace vemo {

namespace {

thread_local vtkSmartPointer<vtkPolyData> spare;

}  // namespace

vtkSmartPointer<vtkPolyData> takePolyData() {
  return spare != nullptr ? std::exchange(spare, nullptr) : vtkSmartPointer<vtkPolyData>::New();
}

void returnPolyData(const vtkSmartPointer<vtkPolyData>& polyData) {
  polyData->Initialize();
  spare = polyData;
}

}  // namespace vemo
