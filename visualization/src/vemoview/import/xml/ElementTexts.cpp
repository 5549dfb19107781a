#include "vemoview/import/xml/ElementTexts.h"

namespace vemo {

ElementTexts::Name& ElementTexts::getName(std::string_view text) {
  const auto known = _names.find(text);
  if (known != _names.end()) {
    return *known->second;
  }
  auto name = std::make_unique<Name>(Name{std::string(text)});
  const std::string_view key = name->text;
  return *_names.emplace(key, std::move(name)).first->second;
}

const std::string& ElementTexts::getValue(Name& name, std::string_view text) {
  if (name.latestValue == nullptr || *name.latestValue != text) {
    name.latestValue = &_values.emplace_back(text);
  }
  return *name.latestValue;
}

}  // namespace vemo
