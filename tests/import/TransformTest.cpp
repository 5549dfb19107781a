#include "SceneFixture.h"
#include "scenegraph/transforms/Transform.h"
#include "vemoview/import/GeometryTransform.h"
#include "vemoview/import/ReflectTransform.h"
#include "vemoview/import/RepeatTransform.h"

#include <gtest/gtest.h>

namespace {

using Vector3 = Vector<3, double>;

class TransformTest : public SceneFixture {
 protected:
  /// The transform of the collection that the assembly has become.
  template <class T>
  T& converted(const std::string& element) {
    convert(assembly("A", element + geometry("polys='tri'")));
    return dynamic_cast<T&>(*collection("A").getBaseAttributes().getTransform());
  }
};

TEST_F(TransformTest, MovesAnAssembly) {
  const auto& moved = converted<lum::SimpleTransform>(
      "<transform rotAngle='90'><rotAxis z='2'/><rotOrigin x='1' y='2' z='3'/><translation y='7'/>"
      "<scale x='1' y='2' z='3'/></transform>");
  EXPECT_DOUBLE_EQ(moved.getRotationAngle(), 90 * 1.5707963267948966) << "angles are quarter turns";
  EXPECT_EQ(moved.getRotationAxis(), (Vector3{0, 0, 1}));
  EXPECT_EQ(moved.getRotationOrigin(), (Vector3{1, 2, 3}));
  EXPECT_EQ(moved.getTranslation(), (Vector3{0, 7, 0}));
  EXPECT_EQ(moved.getScale(), (Vector3{1, 2, 3}));
}

TEST_F(TransformTest, WhatIsNotStatedIsZero) {
  const auto& moved = converted<lum::SimpleTransform>("<transform rotAngle='1'/>");
  EXPECT_EQ(moved.getRotationAngle(), 1.5707963267948966);
  EXPECT_EQ(moved.getRotationAxis(), (Vector3{}));
  EXPECT_EQ(moved.getScale(), (Vector3{}));
}

TEST_F(TransformTest, RepeatsAnAssembly) {
  const auto& repeated = converted<lum::PeriodicRepeatTransform>("<repeat nRepeats='6' rotAngle='1'/>");
  EXPECT_EQ(repeated.getNumRepeats(), 6);
  EXPECT_EQ(repeated.getRotationAngle(), 0.0) << "only the count is read";
  EXPECT_EQ(repeated.getScale(), (Vector3{1, 1, 1}));
  EXPECT_EQ(converted<lum::PeriodicRepeatTransform>("<repeat/>").getNumRepeats(), 0);
}

TEST_F(TransformTest, MirrorsAnAssembly) {
  const auto plane = [this](const std::string& attributes) {
    return converted<lum::SymmetricTransform>("<reflect version='2' " + attributes + "/>").getPlane();
  };
  EXPECT_EQ(plane("planeEqnCoeffB='3' planeEqnCoeffC='4' planeEqnCoeffD='10' flip='true'"),
            (Vector<4, double>{0, 0.6, 0.8, 10}));
  EXPECT_EQ(plane("planeEqnCoeffD='10'"), (Vector<4, double>{0, 0, 0, 10}));
}

TEST_F(TransformTest, TheLastTransformWins) {
  converted<lum::SymmetricTransform>("<transform/><repeat/><reflect/>");
}

TEST_F(TransformTest, IsKeptWhenItIsOfTheRightKindAndReplacedElse) {
  auto& attributes = convert("").getModelCanvas().getDrawableCollection().getBaseAttributes();
  const lum::Ptr<lum::Transform> mirrored = ReflectTransform().makeLumTransform(attributes);
  EXPECT_EQ(ReflectTransform().makeLumTransform(attributes), mirrored.get());
  const lum::Transform* simple = GeometryTransform().makeLumTransform(attributes);
  EXPECT_EQ(simple->className(), "SimpleTransform");
  EXPECT_EQ(attributes.getTransform(), simple);
  EXPECT_EQ(RepeatTransform().makeLumTransform(attributes)->className(), "PeriodicRepeatTransform");

  const std::string message = "InternalError: correct type must be enforced by makeLumTransform function | ";
  EXPECT_EQ(failureOf([&] { GeometryTransform().apply(*mirrored); }), message + "lumSimpleTransform");
  EXPECT_EQ(failureOf([&] { RepeatTransform().apply(*mirrored); }), message + "lumPeriodicRepeatTransform");
  EXPECT_EQ(failureOf([&] { ReflectTransform().apply(*attributes.getTransform()); }),
            message + "lumSymmTransform");
}

}  // namespace
