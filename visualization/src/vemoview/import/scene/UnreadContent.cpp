#include "vemoview/import/scene/UnreadContent.h"

#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/xml/QxElement.h>

#include <string_view>

namespace vemo {

namespace {

/// Whether an attribute is about the XML and not about the scene.
bool isOfXml(std::string_view attribute) {
  return attribute.starts_with("xml:") || attribute.starts_with("xmlns:") || attribute == "xmlns";
}

void reportUnread(const PlacedElement& place, SceneFileReader& reader) {
  const QxElement& element = *place.element;
  const auto report = [&](FindingCode code, const std::string& text, const std::string& attribute = {}) {
    reader.report({code, text, {}, place.path, element.getLine(), attribute, element.getPlace().number});
  };
  if (!element.isRead()) {
    report(FindingCode::ELEMENT_UNKNOWN,
           "The element " + ReadingContext::quoted(element.getName()) + " is unknown here and is ignored");
    reader.loseEntriesOf(element);
    return;
  }
  for (const QxElement::Attribute& attribute : element.getAttributes()) {
    if (isOfXml(attribute.getName())) {
      attribute.markUnused();
    } else if (!attribute.isRead()) {
      report(FindingCode::ATTRIBUTE_UNKNOWN,
             "The attribute " + ReadingContext::quoted(attribute.getName()) + " of " +
                 ReadingContext::quoted(element.getName()) + " is unknown and is ignored",
             attribute.getName());
    }
  }
  if (element.hasText() && !element.isTextRead()) {
    report(FindingCode::TEXT_IGNORED,
           "The text in " + ReadingContext::quoted(element.getName()) + " is ignored", TEXT_NAME);
  }
}

}  // namespace

void reportUnreadContent(const QxElement& description, SceneFileReader& reader) {
  walkDescription(description, [&reader](const PlacedElement& place) {
    reportUnread(place, reader);
    return place.element->isRead();
  });
  for (const std::string& entry : reader.getUnusedEntries()) {
    const std::string text = "The scene does not use the entry " + ReadingContext::quoted(entry);
    if (reader.isLost(entry)) {
      reader.keepConsequence(FindingCode::ENTRY_UNUSED, entry);
    } else if (!reader.isExcused(entry)) {
      reader.report({FindingCode::ENTRY_UNUSED, text, entry});
    }
  }
}

}  // namespace vemo
