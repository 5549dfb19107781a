#pragma once

#include "ExportRequest.h"

namespace vemo {

/// Converts an archive of the old generation to a scene-graph database. A
/// database is checked, its arrays included, and rewritten. An output that
/// fails verification is removed.
void writeDatabase(const ExportRequest& request);

}  // namespace vemo
