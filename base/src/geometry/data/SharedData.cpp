#include "geometry/data/SharedData.h"

#include <vtkCallbackCommand.h>
#include <vtkCellData.h>
#include <vtkCommand.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>

namespace vemo {

namespace {

/// Keeps changes of data from those that observe them, until it ends with a change of its own.
class Silence {
 public:
  explicit Silence(vtkDataSetAttributes& data) : _data(data) {
    _command->SetCallback([](vtkObject*, unsigned long, void*, void*) {});
    _command->AbortFlagOnExecuteOn();
    _observer = data.AddObserver(vtkCommand::ModifiedEvent, _command, FIRST);
  }
  ~Silence() {
    _data.RemoveObserver(_observer);
    _data.Modified();
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  /// Before the observers of data sets.
  static constexpr float FIRST = 1.0F;

  vtkDataSetAttributes& _data;
  vtkNew<vtkCallbackCommand> _command;
  unsigned long _observer = 0;
};

}  // namespace

void shareArrays(vtkDataSetAttributes& from, vtkDataSetAttributes& to) {
  const Silence silence(to);
  to.ShallowCopy(&from);
}

vtkSmartPointer<vtkPolyData> shallowCopy(vtkPolyData& geometry) {
  auto copy = vtkSmartPointer<vtkPolyData>::New();
  const Silence ofPoints(*copy->GetPointData());
  const Silence ofCells(*copy->GetCellData());
  copy->ShallowCopy(&geometry);
  return copy;
}

}  // namespace vemo
