#pragma once

class vtkPlaneCollection;

namespace vemo {

struct ImageDecoration;
class PropGroup;

/// Adds an image to a group, unlit: in the window over everything that is drawn
/// there before it, or in the model, where it covers, is covered, and is cut by the
/// planes if it says so.
void addImage(const ImageDecoration& image, vtkPlaneCollection& clipPlanes, PropGroup& group);

}  // namespace vemo
