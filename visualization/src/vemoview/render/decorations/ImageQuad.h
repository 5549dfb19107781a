#pragma once

namespace vemo {

struct CanvasResources;
struct ImageDecoration;
class PropGroup;

/// Adds an image to a group, unlit: in the window over everything that is drawn
/// there before it, or in the model, where it is sorted by depth, and clipped
/// by the planes if the image says so.
void addImage(const ImageDecoration& image, CanvasResources& resources, PropGroup& group);

}  // namespace vemo
