// Items of one name share a collection, and geometry of one name a drawable:
// whether an item is seen depends on it and on what is around it alone.

#include "SceneFixture.h"
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <map>

namespace vemo {

namespace {

/// A geometry within assemblies, all named "A".
struct Sibling {
  /// From the outside in; the last one is the geometry's.
  std::vector<bool> isShown;

  bool isSeen() const { return std::ranges::find(isShown, false) == isShown.end(); }
  /// @param points their entry
  std::string xml(const std::string& points, std::size_t depth = 0) const {
    const std::string visibility = std::string(" visibility='") + (isShown[depth] ? "1'" : "0'");
    return depth + 1 == isShown.size() ? geometry("name='A' points='" + points + "'" + visibility)
                                       : assembly("A", xml(points, depth + 1), visibility);
  }
};

/// Whether the geometry of each node is seen, by the first coordinate of its
/// points.
std::map<int, bool> seenIn(lum::Node& root) {
  std::map<int, bool> seen;
  lum::forEachNodeOf<lum::PolyDataNode>(root, [&seen](const lum::PolyDataNode& node) {
    bool isSeen = true;
    for (const lum::Node* above = node.getOwner(); above != nullptr; above = above->getOwner()) {
      const auto* const drawable = dynamic_cast<const lum::Drawable*>(above);
      const auto* const base =
          drawable != nullptr ? drawable->findAttributes<lum::BaseAttributes>() : nullptr;
      isSeen = isSeen && (base == nullptr || base->getVisibility());
    }
    seen[static_cast<int>(node.getAttachmentPoint()[0])] = isSeen;
  });
  return seen;
}

class SharedNamesTest : public SceneFixture {};

TEST_F(SharedNamesTest, NoItemShowsOrHidesAnother) {
  std::vector<Sibling> siblings;
  for (std::size_t depth = 1; depth <= 3; ++depth) {
    for (unsigned bits = 0; bits < 1U << depth; ++bits) {
      Sibling& sibling = siblings.emplace_back();
      for (std::size_t i = 0; i < depth; ++i) {
        sibling.isShown.push_back((bits >> i & 1U) != 0);
      }
    }
  }
  for (float i = 0; i < 3; ++i) {
    _archive.floats("p" + std::to_string(static_cast<int>(i)), {i, 0, 0});
  }
  std::string xml;
  std::map<std::string, std::map<int, bool>> expected;
  for (const Sibling& first : siblings) {
    for (const Sibling& second : siblings) {
      for (const Sibling& third : siblings) {
        const std::string triple = first.xml("p0") + second.xml("p1") + third.xml("p2");
        const std::string name = std::to_string(expected.size());
        xml += assembly(name, triple);
        expected[name] = {{0, first.isSeen()}, {1, second.isSeen()}, {2, third.isSeen()}};
      }
    }
  }
  convert(xml);
  for (const auto& [name, seen] : expected) {
    ASSERT_EQ(seenIn(collection(name)), seen) << xml.substr(xml.find("<assembly name='" + name + "'"), 600);
  }
}

}  // namespace

}  // namespace vemo
