#pragma once

#include <vemo/scenegraph/FieldKinds.h>
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <set>
#include <string>

namespace lum {

class RangeChange;
class SceneNode;

/// The colour tables of geometry before it is coloured by an array.
struct FormerColors {
  /// Of geometry that was coloured by the same array.
  std::set<vemo::ColorTable> ofArray;
  /// Of geometry that was coloured by other arrays.
  std::set<vemo::ColorTable> ofOthers;
  /// Of geometry that keeps its colours.
  std::set<vemo::ColorTable> kept;
};

/// Shows the table of an array in one legend: the visible one of its former colours, else that of other
/// colours that are replaced, else a new one. Other legends of replaced colours are hidden.
void updateLegends(SceneNode& scene, const FormerColors& former, const std::string& array,
                   const ColorLookupTable& table);

/// Changes the range of the legends of the array's former colours.
void setLegendRange(SceneNode& scene, const FormerColors& former, RangeChange& change);

}  // namespace lum
