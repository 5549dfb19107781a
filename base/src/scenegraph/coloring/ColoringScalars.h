#pragma once

#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

namespace lum {

/// The array and colour table of a drawable that is coloured by data; null for any other.
/// Data without a colour table are not shown: nothing specifies their colours and range.
inline ScalarAttributes* findColoringScalars(const GeometryDrawable& drawable) {
  const auto* const colors = drawable.findAttributes<ColorAttributes>();
  auto* const scalars = drawable.findAttributes<ScalarAttributes>();
  const bool isUsed = colors != nullptr && colors->getColorMode() == ColorMode::DATA && scalars != nullptr &&
                      scalars->hasDataArray() != nullptr && scalars->hasColorLookupTable() != nullptr;
  return isUsed ? scalars : nullptr;
}

/// Where the array is that colours a drawable.
inline DataLocation coloringLocation(const GeometryDrawable& drawable) {
  const auto* const location = drawable.findAttributes<DataLocationAttributes>();
  return location != nullptr ? location->getDataLocation() : DataLocation::POINTS;
}

}  // namespace lum
