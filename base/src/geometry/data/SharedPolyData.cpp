#include "geometry/data/SharedPolyData.h"

#include "base/MemoryReserve.h"

#include <vtkPolyData.h>

#include <utility>

namespace vemo {

namespace {

/// Trivial, so that it outlives the spare one: destructors of global objects come after those of the
/// thread's.
thread_local bool isThreadEnding = false;

struct Spare {
  vtkSmartPointer<vtkPolyData> polyData;

  ~Spare() { isThreadEnding = true; }
};

thread_local Spare spare;

vtkSmartPointer<vtkPolyData> takeSpare() {
  vtkSmartPointer<vtkPolyData> taken = isThreadEnding ? nullptr : std::exchange(spare.polyData, nullptr);
  return taken != nullptr ? taken : vtkSmartPointer<vtkPolyData>::New();
}

}  // namespace

PolyDataLoan::PolyDataLoan() : _polyData(takeSpare()) {}

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
    if (!isThreadEnding) {
      spare.polyData = _polyData;
    }
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
