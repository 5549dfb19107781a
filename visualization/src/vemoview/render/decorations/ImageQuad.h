#pragma once

namespace vemo {

struct ImageDecoration;
class PropGroup;

/// Adds an image to a group, unlit: in the window over everything that is drawn
/// there before it, or in the model, where it covers and is covered.
void addImage(const ImageDecoration& image, PropGroup& group);

}  // namespace vemo
