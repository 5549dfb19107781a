#include "vemoview/import/reading/ElementVersion.h"

#include "vemoview/import/reading/KeyTable.h"

namespace vemo {

const KeyTable<ElementVersion> ElementVersion::KEYS({
    key::always<&ElementVersion::version>(
        Readable::XML_ATTRIB_VERSION,
        "the version of the element: above 1 (above 2 in `reflect`) the whole scene is rejected"),
});

}  // namespace vemo
