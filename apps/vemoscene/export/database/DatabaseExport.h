#pragma once

#include "ExportRequest.h"

namespace vemo {

/// Converts an archive of the old generation to a scene-graph database. A
/// database is checked, its arrays included, and rewritten. If verification fails,
/// the output is missing or unchanged.
void writeDatabase(const ExportRequest& request);

}  // namespace vemo
