#pragma once

#include <vtkOutputWindow.h>
#include <vtkSmartPointer.h>

namespace vemo {

/// Sends VTK's messages to our log instead of the standard error stream during
/// its lifetime.
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
