#pragma once

#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

namespace vemo {

/// While it lives, what VTK has to say goes to our log instead of the standard
/// error stream.
class VtkMessages {
 public:
  VtkMessages();
  ~VtkMessages();
  VtkMessages(const VtkMessages&) = delete;
  VtkMessages& operator=(const VtkMessages&) = delete;

 private:
  vtkSmartPointer<vtkOutputWindow> _former;
};

}  // namespace vemo
