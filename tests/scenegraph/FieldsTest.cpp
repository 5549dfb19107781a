#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/canvas/CameraAttributes.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace lum {

LUM_ENUM(Shape, (ROUND, "round"), (SQUARE, "square"), (FLAT, "as flat as can be"))

class FieldsBase : public Node {
  LUM_NODE(FieldsBase, Node)
  LUM_VALUE(double, Weight, _weight, 2.5)
  LUM_ENUMERATION(Shape, Shape, _shape, Shape::SQUARE)
};

/// Declares nothing itself.
class FieldsBetween : public FieldsBase {
  LUM_NODE(FieldsBetween, FieldsBase)
};

class FieldsDerived final : public FieldsBetween {
  LUM_NODE(FieldsDerived, FieldsBetween)
  LUM_OWNED(AttributesCollection, Attributes, _attributes)
  LUM_FIELD(bool, _visibility, true)
  LUM_FIELD(Reference<CameraAttributes>, _camera)
  LUM_VALUE(Vector3, Color1, _color1, {0.5, 0.0, 1.0})

 public:
  const bool& getVisibility() const { return _visibility; }
};

}  // namespace lum

namespace vemo {

namespace {

using testing::ElementsAre;

lum::Ptr<lum::FieldsDerived> makeNode() {
  return lum::Ptr<lum::FieldsDerived>(
      new lum::FieldsDerived(lum::ClassNameNodeInitializer(lum::FieldsDerived::getClassName())));
}

/// The member that a field leads to.
template <class T>
T get(const lum::Node& node, std::size_t index) {
  return std::get<T>(node.getFields()[index].value);
}

TEST(FieldsTest, EveryDeclarationIsListedBaseClassesFirst) {
  std::vector<std::string> names;
  for (const lum::Field& field : makeNode()->getFields()) {
    names.emplace_back(field.name);
  }
  EXPECT_THAT(names, ElementsAre("weight", "shape", "attributes", "visibility", "camera", "color1"));
}

TEST(FieldsTest, AFieldLeadsToItsMember) {
  const auto node = makeNode();
  EXPECT_EQ(*get<double*>(*node, 0), 2.5);
  node->setWeight(3.0);
  EXPECT_EQ(*get<double*>(*node, 0), 3.0);
  const auto shape = get<lum::EnumerationField>(*node, 1);
  EXPECT_EQ(*shape.value, 1);
  EXPECT_THAT(*shape.names, ElementsAre(testing::StrEq("round"), testing::StrEq("square"),
                                        testing::StrEq("as flat as can be")));
  node->setShape(lum::Shape::FLAT);
  EXPECT_EQ(*shape.value, 2);
  EXPECT_EQ(get<lum::OwnedSlot*>(*node, 2)->getNode(), nullptr);
  const lum::Node* const owned = &node->getAttributes();
  EXPECT_EQ(get<lum::OwnedSlot*>(*node, 2)->getNode(), owned);
  EXPECT_EQ(&node->getVisibility(), get<bool*>(*node, 3));
  EXPECT_EQ(get<lum::Vector3*>(*node, 5), &node->getColor1());
}

}  // namespace

}  // namespace vemo
