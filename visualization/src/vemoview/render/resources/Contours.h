#pragma once

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <map>

namespace vemo {

/// The contours of meshes, each made once as long as it is in use.
class Contours {
 public:
  vtkSmartPointer<vtkPolyData> get(vtkPolyData& faces);

 private:
  struct Contour {
    vtkWeakPointer<vtkPolyData> faces;
    vtkWeakPointer<vtkPolyData> lines;
  };

  std::map<const vtkPolyData*, Contour> _known;
};

}  // namespace vemo
