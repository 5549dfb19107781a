#pragma once

#include <string>

namespace vemo {

/// Converts an archive of the old generation to a scene-graph database. A
/// database is checked, its arrays included, and written anew.
void writeDatabase(const std::string& file, const std::string& output);

}  // namespace vemo
