#pragma once

#include "ExportRequest.h"

namespace vemo {

/// Converts an archive of the old generation to a scene-graph database. A
/// database is checked, its arrays included, and written anew. An output that
/// does not stand verification is removed.
void writeDatabase(const ExportRequest& request);

}  // namespace vemo
