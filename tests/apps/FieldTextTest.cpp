#include "FieldText.h"
#include <vemo/scenegraph/NodeFactory.h>

#include <gmock/gmock.h>

namespace vemo {

namespace {

TEST(FieldText, CallsEveryEnumeratorByName) {
  int count = 0;
  for (const std::string& name : lum::getNodeClassNames()) {
    const lum::Ptr<lum::Node> node = lum::createNode(lum::ClassNameNodeInitializer(name));
    for (const lum::Field& field : node->getFields()) {
      const auto* const enumeration = std::get_if<lum::EnumerationField>(&field.value);
      for (std::int32_t value = 0; enumeration != nullptr && value < enumeration->count; ++value) {
        *enumeration->value = value;
        EXPECT_NE(describeField(*node, field), std::to_string(value)) << name << ' ' << field.name;
        ++count;
      }
    }
  }
  EXPECT_GT(count, 0);
}

}  // namespace

}  // namespace vemo
