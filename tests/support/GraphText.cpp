#include "support/GraphText.h"

#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

namespace vemo {

namespace {

using Json = nlohmann::ordered_json;

/// Longer arrays are summarized instead of printed value by value.
constexpr std::size_t MOST_VALUES = 40;

Json toJson(const lum::Node& node) {
  // Versions of VTK differ in the sign of zero.
  return Json::parse(jsonText(node), [](int /*depth*/, Json::parse_event_t /*event*/, Json& value) {
    value = value == 0.0 ? Json(0) : value;
    return true;
  });
}

/// The fields of a new node of the class.
const Json& defaultsOf(const std::string& className) {
  static std::map<std::string, Json> known;
  const auto [place, isNew] = known.try_emplace(className);
  if (isNew) {
    place->second = toJson(*lum::createNode(lum::ClassNameNodeInitializer(className)))["fields"];
  }
  return place->second;
}

std::string arrayText(const Json& array) {
  const Json& values = array["values"];
  return array["type"].get<std::string>() + " x " + array["components"].dump() + " " +
         (values.size() <= MOST_VALUES ? values.dump()
                                       : array["tuples"].dump() + " tuples within " + array["range"].dump());
}

std::string valueText(const Json& value) {
  if (!value.is_object()) {
    return value.dump();
  }
  if (value.contains("reference")) {
    return "-> " + value["reference"].dump();
  }
  if (value.contains("connectivity")) {
    return "offsets " + arrayText(value["offsets"]) + ", connectivity " + arrayText(value["connectivity"]);
  }
  if (value.contains("tuples")) {
    return arrayText(value);
  }
  std::string text;
  for (const auto& [key, entry] : value.items()) {
    text += (text.empty() ? "" : "; ") + key + " " + valueText(entry);
  }
  return "{" + text + "}";
}

void append(std::string& text, const Json& node, const std::string& indent) {
  const auto className = node["class"].get<std::string>();
  const bool isPrinted = className != "AttributesCollection";
  const std::string inner = isPrinted ? indent + "  " : indent;
  if (isPrinted) {
    text += indent + className;
    text += node["name"] != className ? " " + node["name"].dump() : "";
    text += node.contains("qualifiedName") ? " of " + node["qualifiedName"].dump() : "";
    text += "\n";
  }
  const Json& defaults = defaultsOf(className);
  for (const auto& [name, value] : node["fields"].items()) {
    if (value != defaults[name]) {
      text.append(inner).append(name).append(": ").append(valueText(value)).append("\n");
    }
  }
  for (const Json& owned : node["nodes"]) {
    append(text, owned, inner);
  }
}

}  // namespace

std::string jsonText(const lum::Node& root, lum::JsonPrinter::Values values) {
  std::ostringstream out;
  lum::JsonWriter writer(out);
  lum::JsonPrinter(writer, values).print(root);
  writer.finish();
  return out.str();
}

std::string graphText(const lum::Node& root) {
  std::string text;
  append(text, toJson(root), "");
  return text;
}

}  // namespace vemo
