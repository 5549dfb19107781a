#include "geometry/data/SharedPolyData.h"

#include "base/MemoryReserve.h"

#include <vtkPolyData.h>

#include <utility>

namespace vemo {

namespace {

/// Never destroyed: destructors of global objects may need one, which come after those of threads.
vtkSmartPointer<vtkPolyData>& spare() {
  thread_local auto& polyData = *new vtkSmartPointer<vtkPolyData>;
  return polyData;
}

}  // namespace

PolyDataLoan::PolyDataLoan()
    : _polyData(spare() != nullptr ? std::exchange(spare(), nullptr) : vtkSmartPointer<vtkPolyData>::New()) {}

PolyDataLoan::PolyDataLoan(const PolyDataContent& content) : PolyDataLoan() {
  content.putInto(*_polyData);
}

PolyDataLoan::PolyDataLoan(vtkSmartPointer<vtkPolyData> kept) : _polyData(std::move(kept)), _isKept(true) {}

PolyDataLoan::~PolyDataLoan() {
  if (_isKept) {
    return;
  }
  OS::stopWithoutMemory([this] {
    _polyData->Initialize();
    spare() = _polyData;
  });
}

SharedPolyData::SharedPolyData(PolyDataContent content) : _content(std::move(content)) {}

SharedPolyData::SharedPolyData(vtkPolyData& polyData) : _polyData(&polyData) {}

vtkPolyData* SharedPolyData::keep() {
  if (_polyData == nullptr) {
    auto made = vtkSmartPointer<vtkPolyData>::New();
    _content.putInto(*made);
    _polyData = made;
  }
  return _polyData;
}

}  // namespace vemo
