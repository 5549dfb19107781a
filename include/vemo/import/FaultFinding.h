#pragma once

#include <vemo/import/Export.h>
#include <vemo/scenegraph/Finding.h>

#include <string>

namespace vemo {

class Error;
class Exception;

/// The message, completed where it is only a value or empty. May hold "<br>".
VEMO_IMPORT_EXPORT std::string describe(const Exception& exception);

// Failures as findings, for a search for all faults of a file.

VEMO_IMPORT_EXPORT Finding findingOf(const Exception& exception);
VEMO_IMPORT_EXPORT Finding findingOf(const Error& error);

}  // namespace vemo
