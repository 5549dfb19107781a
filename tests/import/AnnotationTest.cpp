#include "SceneFixture.h"
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Annotation.h>
#include <vemo/import/items/Image2D.h>
#include <vemo/scenegraph/drawables/Overlays.h>

#include <vtkDataArray.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Vector3 = Vector<3, double>;

class Overlays : public SceneFixture {
 protected:
  Overlays() { _archive.bytes("rgb", {1, 2, 3, 4, 5, 6}); }

  lum::DrawableCollection& foreground() { return _sceneNode->getForegroundCanvas().getDrawableCollection(); }
};

TEST_F(Overlays, TextsStandInTheModelWhereTheyAreAdded) {
  convert("<annotation text='first' mode='MODEL'/><annotation text='second' mode='MODEL'/>" +
          assembly("A", "<annotation name='none' text='unread'/>" + geometry("polys='tri'")));
  EXPECT_EQ(collection("").getNodeCount(), 3U) << "those without a name are different ones";
  EXPECT_EQ(drawable<lum::TextDrawable>("").getAnnotationAttributes().getText(), "first");
  EXPECT_FALSE(drawable<lum::TextDrawable>("").getBaseAttributes().getVisibility());
  EXPECT_EQ(collection("A").getNodeCount(), 1U) << "only the scene reads annotations";

  EXPECT_EQ(foreground().getNodeCount(), 0U);

  auto made = std::make_unique<Annotation>("made");
  made->setText("x");
  made->setMode(lum::CoordinateSpace::MODEL);
  AssemblyItem group("A");
  group.add(std::move(made));
  SharedBySiblings shared;
  group.addToCollection(shared, collection(""), 1, "");
  EXPECT_TRUE(collection("A").find<lum::TextDrawable>("made"));
}

TEST_F(Overlays, ImagesThatAreHiddenKeepTheirOpacityAndEmptyOnesGo) {
  convert(assembly("A",
                   "<image3d name='hidden' visibility='0' opacity='0.5' pixels='rgb' width='1' height='3' "
                   "components='2'/><image2d name='unstated' pixels='rgb' width='2' height='1'/>"
                   "<image3d name='empty'/>"));
  auto* const hidden = collection("A").find<lum::ImageDrawable>("hidden");
  ASSERT_TRUE(hidden);
  EXPECT_FALSE(hidden->getBaseAttributes().getVisibility());
  EXPECT_EQ(hidden->getColorAttributes()->getOpacity(), 0.5) << "not transparent for ever";
  EXPECT_EQ(collection("A").getNodeCount(), 1U);
  auto* const unstated = foreground().find<lum::ImageDrawable>("unstated");
  ASSERT_TRUE(unstated);
  EXPECT_EQ(unstated->getImageAttributes().getXAxis(), (Vector3{0.2, 0, 0}));
  EXPECT_EQ(unstated->getImageAttributes().getPixels()->GetComponent(1, 2), 6) << "of three components";
  EXPECT_TRUE(logHas(takeLog(), "The image \"empty\" has no pixels and is left out"));
}

TEST_F(Overlays, ImagesRefusePixelsThatDoNotFit) {
  const auto failure = [&](const std::string& attributes) {
    return failureOf([&] { read("<image2d name='i' " + attributes + "/>"); });
  };
  const std::string end = ".<br>Your file may be corrupt. | scene/i:1:";
  EXPECT_EQ(failure("pixels='rgb' width='2' height='2'"),
            "IOException: Entry 'rgb' has 6 bytes, but an image of 2 x 2 pixels with 3 components needs 12" +
                end + "rgb");
  EXPECT_EQ(failure("pixels='rgb' width='2147483647' height='2147483647' components='4'"),
            "IOException: Entry 'rgb' has 6 bytes, but an image of 2147483647 x 2147483647 pixels with 4 "
            "components needs 18446744056529682436" +
                end + "rgb");
  for (const char* size : {"width='0' height='2'", "width='2' height='4294967295'",
                           "width='6' height='1' components='0'", "width='1' height='1' components='5'"}) {
    EXPECT_THAT(failure(std::string("pixels='rgb' ") + size),
                HasSubstr("IOException: An image cannot have "));
  }
  EXPECT_EQ(failure("pixels='absent' width='1' height='1'"),
            "IOException: Requested non-existent entry 'absent'" + end + "absent");
  EXPECT_EQ(failureOf([] { Image2D("i").read(*elementOf("<image2d pixels='p'/>"), nullptr); }),
            "InternalError: SceneFileReadable can't be NULL for this object | reader");
}

TEST_F(Overlays, WarnOfWordsThatTheyDoNotKnow) {
  convert(
      "<annotation text='t' mode='window' version='?'/><image2d coordinateSystem='SCREEN'/>"
      "<annotation name='silent'/>");
  EXPECT_THAT(warnings(),
              ElementsAre(HasSubstr("\"SCREEN\" of \"coordinateSystem\""), HasSubstr("\"?\" is not a number"),
                          HasSubstr("\"window\" of \"mode\"")));
  EXPECT_EQ(foreground().getNodeCount(), 1U);
  EXPECT_TRUE(logHas(takeLog(), "The annotation \"silent\" has no text and is left out"));
}

}  // namespace

}  // namespace vemo
