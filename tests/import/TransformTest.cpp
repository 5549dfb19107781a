#include "SceneFixture.h"
#include <vemo/import/items/GeometryTransform.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/scenegraph/transforms/Transform.h>

#include <gtest/gtest.h>

namespace vemo {

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

TEST_F(TransformTest, TakesWhatIsNotStatedForZero) {
  const auto& turned = converted<lum::SimpleTransform>("<transform rotAngle='1'/>");
  EXPECT_EQ(turned.getRotationAxis(), (Vector3{}));
  EXPECT_EQ(turned.getScale(), (Vector3{}));
  const auto& repeated = converted<lum::PeriodicRepeatTransform>("<repeat rotAngle='1'/>");
  EXPECT_EQ(repeated.getNumRepeats(), 0);
  EXPECT_EQ(repeated.getRotationAngle(), 0.0) << "is not read";
  EXPECT_EQ(converted<lum::SymmetricTransform>("<reflect planeEqnCoeffD='10'/>").getPlane(),
            (Vector<4, double>{0, 0, 0, 10}));
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

}  // namespace vemo
