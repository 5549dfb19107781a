#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/Exception.h>
#include <vemo/import/QxElement.h>
#include <vemo/import/Readable.h>

namespace vemo {

Readable::~Readable() = default;

void Readable::checkVersion(const QxElement& element, int newest) {
  if (element.getInt(XML_ATTRIB_VERSION) > newest) {
    throw FutureVersionException();
  }
}

void Readable::checkVersionOfExtra(const QxElement& element, SceneFileReader* reader) {
  try {
    checkVersion(element);
  } catch (const NumberFormatException& exception) {
    if (reader != nullptr) {
      reader->addWarning("The version \"" + exception.getMessage() + "\" is not a number and is passed over");
    }
  }
}

void Readable::warnNotShown(const QxElement& element, SceneFileReader* reader) {
  if (reader != nullptr) {
    reader->addWarning("Items of the kind \"" + element.getName() + "\" are not shown");
  }
}

}  // namespace vemo
