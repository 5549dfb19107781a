#pragma once

#include "vemoview/render/resources/Expiry.h"

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <map>

namespace vemo {

/// The contours of meshes. While one is in use, it is made only once.
class Contours {
 public:
  vtkSmartPointer<vtkPolyData> get(vtkPolyData& faces);

 private:
  struct Contour {
    vtkWeakPointer<vtkPolyData> faces;
    vtkWeakPointer<vtkPolyData> lines;
  };

  std::map<const vtkPolyData*, Contour> _known;
  Expiry _expiry;
};

}  // namespace vemo
