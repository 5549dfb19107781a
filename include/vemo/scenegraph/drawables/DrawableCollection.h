#pragma once

#include <vemo/scenegraph/drawables/Drawable.h>

namespace lum {

/// Drawables that are shown, hidden and transformed together.
class VEMO_SCENEGRAPH_EXPORT DrawableCollection final : public Drawable {
  LUM_NODE(DrawableCollection, Drawable)

 protected:
  bool accepts(const Node& node) const override { return dynamic_cast<const Drawable*>(&node) != nullptr; }
};

}  // namespace lum
