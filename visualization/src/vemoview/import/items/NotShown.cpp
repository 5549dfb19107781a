#include "vemoview/import/items/NotShown.h"

#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/xml/QxElement.h>

namespace vemo {

void warnNotShown(const QxElement& element, SceneFileReader* reader) {
  // One finding covers all of it.
  markTreeRead(element);
  if (reader != nullptr) {
    reader->noteLoss();
    reader->loseEntriesOf(element);
    reader->report(FindingCode::KIND_NOT_SHOWN,
                   "Items of the kind " + ReadingContext::quoted(element.getName()) + " are not shown");
  }
}

}  // namespace vemo
