#include "support/SceneXml.h"

#include <initializer_list>
#include <utility>

namespace vemo {

namespace {

/// The first attribute of a name counts: defaults stand behind what is given.
std::string withDefaults(const std::string& attributes,
                         std::initializer_list<std::pair<const char*, const char*>> defaults) {
  std::string all = " " + attributes;
  for (const auto& [name, value] : defaults) {
    if (all.find(std::string(" ") + name + "=") == std::string::npos) {
      all += std::string(" ") + name + "='" + value + "'";
    }
  }
  return all;
}

}  // namespace

std::string geometry(const std::string& attributes, const std::string& children) {
  return "<geometry" +
         withDefaults(attributes, {{"name", "g"},
                                   {"visibility", "1"},
                                   {"points", "p"},
                                   {"lineColor", "ff000080"},
                                   {"faceColor", "00ff0080"},
                                   {"showFaces", "true"},
                                   {"smoothShading", "true"}}) +
         ">" + children + "</geometry>";
}

std::string assembly(const std::string& name, const std::string& children, const std::string& more) {
  return "<assembly name='" + name + "'" + withDefaults(more, {{"visibility", "1"}}) + ">" + children +
         "</assembly>";
}

std::string sceneXml(const std::string& children, const std::string& attributes) {
  return "<scene" + withDefaults(attributes, {{"background", "ff800040"}}) + ">" + children + "</scene>";
}

}  // namespace vemo
