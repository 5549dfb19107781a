#pragma once

namespace vemo {

struct LegendDecoration;
class PropGroup;

/// Adds a colour bar with its title and numbers to a group, laid out again
/// whenever the renderer's size changes. As many numbers are shown as fit
/// without touching each other; a title that would leave the window is wrapped
/// and moved inwards. Nothing is cut: text that does not fit into the legend's size
/// shrinks while it stays readable, then the legend grows, then the text shrinks
/// as far as needed.
void addLegend(const LegendDecoration& legend, PropGroup& group);

}  // namespace vemo
