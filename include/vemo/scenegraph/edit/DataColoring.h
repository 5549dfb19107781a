#pragma once

#include <vemo/scenegraph/Export.h>
#include <vemo/scenegraph/FieldKinds.h>

#include <optional>
#include <string>
#include <vector>

namespace lum {

class SceneNode;

/// The names of the arrays that can colour geometry of the scene, sorted.
VEMO_SCENEGRAPH_EXPORT std::vector<std::string> listColorArrays(SceneNode& scene);

/// The names of the arrays that colour geometry of the scene, sorted.
VEMO_SCENEGRAPH_EXPORT std::vector<std::string> listUsedColorArrays(SceneNode& scene);

/// The range of the colours of the first geometry that an array colours, as it is drawn: from the
/// lesser value to the greater. Nothing if there is none.
VEMO_SCENEGRAPH_EXPORT std::optional<Vector2> findColorRange(SceneNode& scene, const std::string& array);

/// Colours all geometry that has an array over its points or cells by it, with one colour
/// table: that of geometry coloured by the array before, else another of the scene, else a
/// rainbow. Of several components the first counts. Without a range, it is that of all
/// finite values.
///
/// A legend of the former colours shows the new ones, with the array's name as its title,
/// unless other geometry still has the former colours. If none is visible, one is added.
///
/// Throws EditError, with the names of all arrays, when no geometry has the array; and for
/// a range that setColorRange does not take.
VEMO_SCENEGRAPH_EXPORT void colorByArray(SceneNode& scene, const std::string& array,
                                         const std::optional<Vector2>& range = std::nullopt);

/// Changes the range of an array that colours the scene, and that of its legends; the colours stay in
/// the order in which they are drawn. Without an array it is the only one that does. Throws EditError when
/// none or several do, and for a range that is not finite or does not start below its end, or below 0 if the
/// colours are logarithmic.
VEMO_SCENEGRAPH_EXPORT void setColorRange(SceneNode& scene, const Vector2& range,
                                          const std::optional<std::string>& array = std::nullopt);

}  // namespace lum
