#pragma once

#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/TextMeasure.h>

#include <span>
#include <vector>

namespace vemo {

struct UsualCanvas;

/// How decorations are looked at.
struct DecorationView {
  /// Null if the view of the model is not known.
  const UsualCanvas* canvas = nullptr;
  /// Whether the view is to show all of the model.
  bool showsAll = false;
  /// Of the canvas, as a part of the window's.
  Vector<2, double> size;
  std::span<const ClipPlane> clipPlanes;
  /// Without it, sizes of texts are estimated.
  const TextMeasure& measureText;
};

/// Reports texts, images and triads that are not seen: in the window because they are outside
/// of it, or in the model because a view does not show them. Reports those that are cut off by
/// the window, or by the border of a view that is to show all.
void reportUnseenDecorations(const std::vector<Decoration>& decorations, const DecorationView& view);

}  // namespace vemo
