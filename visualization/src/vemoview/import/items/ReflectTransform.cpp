#include <vemo/base/InternalError.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/items/ReflectTransform.h>

namespace vemo {

ReflectTransform::~ReflectTransform() = default;

void ReflectTransform::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element, VERSION);
  const auto coefficient = [&](int i) { return element.getDouble(XML_ATTRIB_COEFFICIENTS[i]); };
  const auto normal = normalized(Vector<3, double>{coefficient(0), coefficient(1), coefficient(2)});
  // The distance is stated for a unit normal already.
  _plane = {normal[0], normal[1], normal[2], coefficient(3)};
  _flip = element.getBool(XML_ATTRIB_FLIP);
}

void ReflectTransform::apply(lum::Transform& target) const {
  auto* const lumSymmTransform = dynamic_cast<lum::SymmetricTransform*>(&target);
  VEMO_REQUIRE(lumSymmTransform, "correct type must be enforced by makeLumTransform function");
  lumSymmTransform->setPlane(_plane);
}

lum::Transform* ReflectTransform::makeLumTransform(lum::BaseAttributes& attributes) const {
  return ensureTransform<lum::SymmetricTransform>(attributes);
}

}  // namespace vemo
