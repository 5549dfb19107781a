#pragma once

namespace lum {
class LegendDrawable;
}

namespace vemo {

class PropGroup;

/// Puts a colour bar with its title and numbers into a group, laid out anew
/// whenever the renderer's size changes. As many numbers are shown as fit
/// without touching each other; a title that would leave the window is wrapped and moved
/// inwards. A legend without a colour table, or without a size, shows nothing.
void addLegend(const lum::LegendDrawable& legend, PropGroup& group);

}  // namespace vemo
