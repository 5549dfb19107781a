#pragma once

#include <vemo/import/ElementPlace.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace lum {
class PolyDataNode;
class TriadDrawable;
}  // namespace lum

namespace vemo {

class Colormap;
class Colormaps;
class CollectionColoring;
class PointBounds;
class ReadingContext;

/// What earlier geometry with a drawable has beside faces: settings of others have
/// no effect.
struct PartsDrawn {
  bool lines = false;
  bool points = false;
  /// Whether a value of its lighting could not be read, so that differences from it follow from
  /// that.
  bool isLightingUnknown = false;
};

/// State passed from an item to its siblings and children during conversion.
struct SharedBySiblings {
  /// The collection that the current children are converted into.
  lum::DrawableCollection* collection = nullptr;

  /// The scene being filled by the conversion, for objects outside the item's
  /// collection: camera, lights, triads, legends.
  lum::Ptr<lum::SceneNode> sceneNode;

  /// Names the item in findings; null for a conversion that a host started.
  ReadingContext* context = nullptr;

  /// Of the geometries that were converted; null before the first.
  std::shared_ptr<PointBounds> pointBounds;

  /// If not null, receives the node of each geometry, by the number of its element.
  std::map<int, lum::PolyDataNode*>* geometryNodes = nullptr;

  /// What colours the data that were converted; null unless an item is being converted.
  std::shared_ptr<CollectionColoring> coloring;

  /// Colours the data in the assembly being converted: outer colormaps take
  /// precedence over inner ones. Null when there is none.
  const Colormap* colormap = nullptr;

  /// The name of the assembly that this colormap is of, while there is one.
  const std::string* coloringAssembly = nullptr;

  /// Those of the assembly whose legend is being converted; null when none is.
  const Colormaps* assemblyColormaps = nullptr;

  /// Those that data or legends have been coloured by, and whether their titles are used.
  std::map<const Colormap*, bool> usedColormaps;

  /// The elements that the transforms of collections, the settings of drawables, and triads, come from. A
  /// later item of the same name may replace them.
  std::map<const lum::Node*, ElementPlace> origins;

  /// The elements that the colormaps of collections come from.
  std::map<const lum::Node*, ElementPlace> colormapOrigins;

  /// Of the name of a triad, the first of that name: one that is shown if that is hidden, or the
  /// other way round.
  std::map<const lum::Node*, lum::TriadDrawable*> otherTriads;

  /// By the drawable.
  std::map<const lum::Node*, PartsDrawn> partsDrawn;

  /// The path of the latest axes that are shown; there is one triad for all.
  std::string axesPath;

  /// Whether an assembly around the item is hidden. Objects outside its
  /// collection are hidden with it.
  bool isHidden = false;

  /// Whether the item is in a hidden assembly whose collection is visible
  /// because other items share it: each item is then hidden individually.
  bool hidesItemsIndividually = false;
};

}  // namespace vemo
