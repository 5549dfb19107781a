#include "vemoview/render/resources/Contours.h"

#include "geometry/drawing/ContourEdges.h"

namespace vemo {

vtkSmartPointer<vtkPolyData> Contours::get(vtkPolyData& faces) {
  _expiry.drop(_known, [](const Contour& contour) { return contour.lines == nullptr; });
  Contour& known = _known[&faces];
  // Others may have the address of what no longer exists.
  vtkSmartPointer<vtkPolyData> lines = known.faces != nullptr ? known.lines.Get() : nullptr;
  if (lines == nullptr) {
    lines = contourEdges(faces, CONTOUR_BEND_DEGREES);
    known.faces = &faces;
    known.lines = lines;
  }
  return lines;
}

}  // namespace vemo
