// What items share: entries, what was made of them, and names. What differs between items
// of the same entries all the same is in tests/data/expected/conversion/shared.txt.

#include "SceneFixture.h"
#include <vemo/import/decorations/Image.h>
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkUnsignedCharArray.h>

#include <map>
#include <string>
#include <vector>

namespace vemo {

namespace {

class SharedEntriesTest : public SceneFixture {
 protected:
  /// The poly data of a scene with these geometries, each in a collection of its own.
  std::vector<vtkSmartPointer<vtkPolyData>> convertAll(const std::vector<std::string>& geometries) {
    std::string children;
    for (const std::string& each : geometries) {
      children += each;
    }
    std::vector<vtkSmartPointer<vtkPolyData>> found;
    lum::forEachNode(convert(children), [&found](lum::Node& node) {
      if (auto* const geometry = dynamic_cast<lum::PolyDataNode*>(&node)) {
        found.emplace_back(geometry->getPolyData());
      }
    });
    EXPECT_EQ(found.size(), geometries.size());
    return found;
  }
};

std::vector<float> valuesOf(vtkDataArray* array) {
  auto* const floats = vtkFloatArray::SafeDownCast(array);
  return floats == nullptr
             ? std::vector<float>()
             : std::vector<float>(floats->GetPointer(0), floats->GetPointer(0) + floats->GetNumberOfValues());
}

TEST_F(SharedEntriesTest, SharesWhatIsEqual) {
  const std::string array = "<array name='a' dim='1' data='four' vertexData='true'/>";
  const auto items = convertAll({geometry("name='1' polys='tri' smoothShading='true'", array),
                                 geometry("name='2' polys='tri' smoothShading='true'", array),
                                 geometry("name='3' polys='tri' smoothShading='false'",
                                          "<array name='b' dim='1' data='four' vertexData='true'/>"),
                                 geometry("name='4' polys='quad' smoothShading='true'",
                                          "<array name='a' dim='2' data='four' vertexData='true'/>")});
  ASSERT_EQ(items.size(), 4U);
  const auto normals = [&items](std::size_t i) { return items[i]->GetPointData()->GetArray("Normals"); };
  for (const std::size_t i : {1U, 2U, 3U}) {
    EXPECT_EQ(items[i]->GetPoints()->GetData(), items[0]->GetPoints()->GetData()) << i;
  }
  for (const std::size_t i : {1U, 2U}) {
    EXPECT_EQ(items[i]->GetPolys()->GetConnectivityArray(), items[0]->GetPolys()->GetConnectivityArray())
        << i;
  }
  EXPECT_NE(items[3]->GetPolys()->GetConnectivityArray(), items[0]->GetPolys()->GetConnectivityArray());
  ASSERT_NE(normals(0), nullptr);
  EXPECT_EQ(normals(1), normals(0));
  EXPECT_EQ(normals(2), nullptr) << "those are of cells";
  EXPECT_NE(normals(3), normals(0)) << "other cells";
  EXPECT_EQ(items[1]->GetPointData()->GetArray("a"), items[0]->GetPointData()->GetArray("a"));
  EXPECT_EQ(valuesOf(items[2]->GetPointData()->GetArray("b")),
            valuesOf(items[0]->GetPointData()->GetArray("a")));
  EXPECT_EQ(items[3]->GetPointData()->GetArray("a"), nullptr) << "two tuples for four points";
}

TEST_F(SharedEntriesTest, HasOnePolyDataForItemsThatAreAlike) {
  const std::string surface = "polys='tri' smoothShading='true'";
  const auto scene =
      read(geometry("name='1' " + surface) + geometry("name='2' lineWidth='5' " + surface) +
           geometry("name='3' polys='tri' smoothShading='false'") +
           geometry("name='4' " + surface, "<array name='a' dim='1' data='four' vertexData='true'/>"));
  std::vector<vtkPolyData*> found;
  for (const auto& item : scene->getChildren()) {
    found.push_back(dynamic_cast<const GeometryItem&>(*item).getGeometry());
  }
  ASSERT_EQ(found.size(), 4U);
  EXPECT_EQ(found[1], found[0]);
  EXPECT_NE(found[2], found[0]) << "other normals";
  EXPECT_NE(found[3], found[0]) << "an array";
}

TEST_F(SharedEntriesTest, HasThePixelsOfImagesOnce) {
  _archive.bytes("grey", {1, 2, 3, 4});
  const std::string image = "<image3d version='1' pixels='grey' width='2' height='1' components=";
  const auto scene = read(image + "'2'/>" + image + "'2'/>" + image.substr(0, image.find("2'")) +
                          "1' height='1' components='4'/>");
  std::vector<vtkUnsignedCharArray*> pixels;
  for (const auto& item : scene->getChildren()) {
    pixels.push_back(dynamic_cast<const Image&>(*item).getPixels());
  }
  ASSERT_EQ(pixels.size(), 3U);
  EXPECT_EQ(pixels[1], pixels[0]);
  EXPECT_NE(pixels[2], pixels[0]);
}

TEST_F(SharedEntriesTest, CountsWhatIsSharedOnce) {
  constexpr int COUNT = 3000;
  const std::vector<float> values(30'000);
  ASSERT_GT(COUNT * values.size() * sizeof(float), ReadingLimits::BYTES_OF_SMALL_ARCHIVE);
  _archive.floats("bolt", values);
  std::string items;
  for (int i = 0; i < COUNT; ++i) {
    items += geometry("name='" + std::to_string(i) + "' points='bolt'");
  }
  EXPECT_EQ(failureOf([&] { read(items); }), "");
}

// ---- Names ----

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
