#include "output/FindingPrinter.h"

#include <vemo/scenegraph/inspect/JsonWriter.h>

namespace vemo {

void printFindings(lum::JsonWriter& json, const std::vector<Finding>& findings) {
  json.key("findings");
  json.beginArray();
  for (const Finding& finding : findings) {
    json.beginObject();
    const auto print = [&json](const char* name, const std::string& text) {
      json.key(name);
      json.value(text);
    };
    print("code", finding.getKind().name);
    print("severity", std::string(severityName(finding.getSeverity())));
    print("text", finding.text);
    print("entry", finding.entry);
    print("itemPath", finding.itemPath);
    json.key("line");
    json.value(finding.line);
    print("attribute", finding.attribute);
    if (!finding.nodePath.empty()) {
      print("nodePath", finding.nodePath);
    }
    json.endObject();
  }
  json.endArray();
}

}  // namespace vemo
