#include "vemoview/import/reading/ElementVersion.h"

#include "vemoview/import/reading/KeyTable.h"
#include <vemo/import/Exception.h>

namespace vemo {

const KeyTable<ElementVersion> ElementVersion::KEYS({
    key::always<&ElementVersion::version>(
        Readable::XML_ATTRIB_VERSION,
        "the version of the element: above 1 (above 2 in `reflect`) the whole scene is rejected"),
});

void checkVersion(const QxElement& element, SceneFileReader* reader, int newest, OnBadValue onBadValue) {
  ElementVersion stated;
  const bool isRead = attempt(reader, [&] {
    const ReadingContext::AttributeScope scope(reader, Readable::XML_ATTRIB_VERSION);
    ElementVersion::KEYS.read(stated, ValueReader(element, nullptr, onBadValue));
  });
  if (stated.version > newest) {
    throw FutureVersionException();
  }
  // What is refused is not also reported as unreadable.
  if (isRead && element.findAttribute(Readable::XML_ATTRIB_VERSION) != nullptr) {
    ElementVersion::KEYS.read(stated, ValueReader(element, reader, onBadValue));
  }
}

}  // namespace vemo
