#pragma once

#include "support/SceneXml.h"
#include "support/TemporaryFolder.h"
#include <vemo/import/scene/Scene.h>
#include <vemo/render/Picture.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <memory>
#include <string>
#include <vector>

namespace vemo {

/// An old scene on its whole way: written as an archive, opened as a host opens
/// it, read back from the database that it has become, and drawn.
///
/// The archive has these entries, from tests/data/features.txt. "flag", points, with "flagFaces", a polygon
/// and another that bends away from it: no two of its mirror images and turns
/// look alike. "hill", 9 x 9 points of a bulging square, with "hillFaces", the
/// 8 x 8 cells between them; "byPoint" and "byCell", values over these from 0.1
/// to about 12, "pairs" and "triples" of such values over its cells. "strips",
/// points of three strips in a row, the last one bent, with "stripFaces" and
/// "stripStrips". "four", points in a row, with "fourVerts" and "fourSizes", a
/// value for each. "pixels1" to "pixels4", 4 x 3 pixels of so many components.
class FeatureScene {
 public:
  static constexpr int SIZE = 300;

  /// What the archive has as pixels of 1 to 4 components, grey, colours, alpha
  /// as in image elements.
  static std::vector<unsigned char> pixels(int components);

  /// @param children of the scene element, which is seen from the front: x to
  /// the right, y upwards, both from -1 to 1 over the picture
  explicit FeatureScene(const std::string& children, const std::string& background = "000000ff");

  /// The items, as the archive's reader makes them.
  Scene& items() const { return *_items; }

  /// The picture of the scene, 300 pixels high.
  Picture draw(int width = SIZE) const;

 private:
  TemporaryFolder _folder;
  std::unique_ptr<Scene> _items;
  lum::Ptr<lum::SceneNode> _node;
};

/// Keeps a picture as a PNG file named after the running test in the folder
/// that the environment variable VEMO_TEST_PICTURES names, if it does.
void keepPicture(const Picture& picture, const std::string& suffix);

}  // namespace vemo
